#include "ui/desktop/DesktopNotifier.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QGuiApplication>
#include <QStringList>
#include <QVariantMap>

namespace lumeo {

void DesktopNotifier::tell(const QString& title, const QString& text) {
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("/org/freedesktop/Notifications"),
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("Notify"));
    constexpr uint none = 0;
    constexpr int asLongAsTheDesktopLikes = -1;
    message << QStringLiteral("LUMEO") << none << QGuiApplication::desktopFileName() << title << text
            << QStringList()
            << QVariantMap{{QStringLiteral("desktop-entry"), QGuiApplication::desktopFileName()}}
            << asLongAsTheDesktopLikes;
    QDBusConnection::sessionBus().send(message);
}

} // namespace lumeo
