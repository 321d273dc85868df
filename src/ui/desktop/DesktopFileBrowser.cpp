#include "ui/desktop/DesktopFileBrowser.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDesktopServices>
#include <QUrl>

namespace lumeo {

void DesktopFileBrowser::reveal(const FilePath& folder) {
    const QString url = QString::fromStdString(folder.fileUrl());
    const auto openByToolkit = [url] { QDesktopServices::openUrl(QUrl::fromEncoded(url.toLatin1())); };
    if (!QDBusConnection::sessionBus().isConnected()) { // without a connection a call would never end
        openByToolkit();
        return;
    }
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowFolders"));
    message << QStringList{url} << QString();
    auto* const pending = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this,
            [openByToolkit](QDBusPendingCallWatcher* watcher) {
                watcher->deleteLater();
                if (QDBusPendingReply<>(*watcher).isError()) {
                    openByToolkit();
                }
            });
}

} // namespace lumeo
