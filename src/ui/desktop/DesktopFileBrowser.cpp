#include "ui/desktop/DesktopFileBrowser.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDesktopServices>
#include <QUrl>

namespace lumeo {
namespace {

QString urlOf(const FilePath& path) {
    return QString::fromStdString(path.fileUrl());
}

void openByToolkit(const FilePath& path) {
    QDesktopServices::openUrl(QUrl::fromEncoded(urlOf(path).toLatin1()));
}

} // namespace

void DesktopFileBrowser::reveal(const FilePath& folder) {
    ask(QStringLiteral("ShowFolders"), folder, folder);
}

void DesktopFileBrowser::show(const FilePath& file) {
    ask(QStringLiteral("ShowItems"), file, file.parent());
}

void DesktopFileBrowser::open(const FilePath& file) {
    openByToolkit(file);
}

void DesktopFileBrowser::ask(const QString& method, const FilePath& path, const FilePath& otherwise) {
    if (!QDBusConnection::sessionBus().isConnected()) { // without a connection a call would never end
        openByToolkit(otherwise);
        return;
    }
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), method);
    message << QStringList{urlOf(path)} << QString();
    auto* const pending = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [otherwise](QDBusPendingCallWatcher* watcher) {
        watcher->deleteLater();
        if (QDBusPendingReply<>(*watcher).isError()) {
            openByToolkit(otherwise);
        }
    });
}

} // namespace lumeo
