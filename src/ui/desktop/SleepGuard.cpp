#include "ui/desktop/SleepGuard.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>

#include <utility>

namespace lumeo {
namespace {

QString portal() {
    return QStringLiteral("org.freedesktop.portal.Desktop");
}

QString reason() {
    return QStringLiteral("Files are being organized");
}

void closeRequest(const QString& path) {
    QDBusConnection::sessionBus().send(QDBusMessage::createMethodCall(
        portal(), path, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Close")));
}

} // namespace

SleepGuard::~SleepGuard() {
    release();
}

void SleepGuard::keepAwake(bool awake) {
    if (awake == isWanted_) {
        return;
    }
    isWanted_ = awake;
    ++number_;
    if (awake) {
        askPortal();
    } else {
        release();
    }
}

void SleepGuard::release() {
    if (!request_.isEmpty()) {
        closeRequest(std::exchange(request_, QString()));
    }
    inhibitor_ = {};
}

void SleepGuard::askPortal() {
    if (!QDBusConnection::sessionBus().isConnected()) { // without a connection a call would never end
        askLoginManager();
        return;
    }
    constexpr uint suspend = 4;
    QDBusMessage message = QDBusMessage::createMethodCall(
        portal(), QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Inhibit"), QStringLiteral("Inhibit"));
    message << QString() << suspend << QVariantMap{{QStringLiteral("reason"), reason()}};
    auto* const pending = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this,
            [this, number = number_](QDBusPendingCallWatcher* watcher) {
                watcher->deleteLater();
                const QDBusPendingReply<QDBusObjectPath> reply = *watcher;
                if (reply.isValid() && number == number_) {
                    request_ = reply.value().path();
                } else if (reply.isValid()) {
                    closeRequest(reply.value().path());
                } else if (number == number_) {
                    askLoginManager();
                }
            });
}

void SleepGuard::askLoginManager() {
    if (!QDBusConnection::systemBus().isConnected()) {
        return;
    }
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("Inhibit"));
    message << QStringLiteral("sleep") << QStringLiteral("LUMEO") << reason() << QStringLiteral("block");
    auto* const pending = new QDBusPendingCallWatcher(QDBusConnection::systemBus().asyncCall(message), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this,
            [this, number = number_](QDBusPendingCallWatcher* watcher) {
                watcher->deleteLater();
                const QDBusPendingReply<QDBusUnixFileDescriptor> reply = *watcher;
                if (reply.isValid() && number == number_) {
                    inhibitor_ = reply.value();
                }
            });
}

} // namespace lumeo
