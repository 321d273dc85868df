#include "ui/desktop/PortalRequest.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QGuiApplication>
#include <QWindow>

#include <utility>

namespace lumeo {
namespace {

QString portalService() {
    return QStringLiteral("org.freedesktop.portal.Desktop");
}

/// The portal's name for the window that its dialog belongs to. Empty where there is no such name.
QString identifier(const QWindow* window) {
    const bool isX11 = QGuiApplication::platformName() == QLatin1String("xcb");
    return window != nullptr && isX11 ? QStringLiteral("x11:") + QString::number(window->winId(), 16)
                                      : QString();
}

QString newToken() {
    static int count = 0;
    return QStringLiteral("lumeo%1").arg(++count);
}

/// The object path of the answer. It is known before the call, so that no answer is missed.
QString expectedHandle(const QString& token) {
    const QString sender =
        QDBusConnection::sessionBus().baseService().mid(1).replace(QLatin1Char('.'), QLatin1Char('_'));
    return QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token);
}

} // namespace

void PortalRequest::ask(const QString& method, const QString& title, QVariantMap options,
                        const QWindow* window, Answer answer, Refusal refused, QObject* parent) {
    auto* const request = new PortalRequest(std::move(answer), std::move(refused), parent);
    request->call(method, title, std::move(options), window);
}

PortalRequest::PortalRequest(Answer answer, Refusal refused, QObject* parent)
    : QObject(parent), answer_(std::move(answer)), refused_(std::move(refused)) {}

void PortalRequest::call(const QString& method, const QString& title, QVariantMap options,
                         const QWindow* window) {
    if (!QDBusConnection::sessionBus().isConnected()) { // without a connection a call would never end
        QMetaObject::invokeMethod(this, &PortalRequest::refuse, Qt::QueuedConnection);
        return;
    }
    const QString token = newToken();
    options[QStringLiteral("handle_token")] = token;
    listen(expectedHandle(token));
    // When the portal dies, its dialog is gone too. The user must then be able to ask for another one.
    const auto* const watcher = new QDBusServiceWatcher(portalService(), QDBusConnection::sessionBus(),
                                                        QDBusServiceWatcher::WatchForUnregistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceUnregistered, this, [this] { finish({}); });

    QDBusMessage message =
        QDBusMessage::createMethodCall(portalService(), QStringLiteral("/org/freedesktop/portal/desktop"),
                                       QStringLiteral("org.freedesktop.portal.FileChooser"), method);
    message << identifier(window) << title << options;
    auto* const pending = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, &PortalRequest::called);
}

void PortalRequest::listen(const QString& handle) {
    handle_ = handle;
    QDBusConnection::sessionBus().connect(portalService(), handle,
                                          QStringLiteral("org.freedesktop.portal.Request"),
                                          QStringLiteral("Response"), this, SLOT(respond(uint, QVariantMap)));
}

void PortalRequest::called(QDBusPendingCallWatcher* watcher) {
    watcher->deleteLater();
    const QDBusPendingReply<QDBusObjectPath> reply = *watcher;
    if (reply.isError()) {
        refuse();
        return;
    }
    if (reply.value().path() != handle_) {
        listen(reply.value().path()); // old portals answer under another path
    }
}

void PortalRequest::refuse() {
    if (answer_) {
        answer_ = nullptr;
        deleteLater();
        std::exchange(refused_, nullptr)();
    }
}

void PortalRequest::respond(uint response, const QVariantMap& results) {
    // Desktops report a cancel in different ways. In each case the dialog was shown.
    constexpr uint confirmed = 0;
    finish(response == confirmed ? results.value(QStringLiteral("uris")).toStringList() : QStringList());
}

void PortalRequest::finish(const QStringList& uris) {
    if (answer_) {
        refused_ = nullptr;
        deleteLater();
        std::exchange(answer_, nullptr)(uris);
    }
}

} // namespace lumeo
