#include "ui/desktop/DesktopSettings.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace lumeo {
namespace {

QString text(const char* latin) {
    return QString::fromLatin1(latin);
}

const char* const service = "org.freedesktop.portal.Desktop";
const char* const path = "/org/freedesktop/portal/desktop";
const char* const settings = "org.freedesktop.portal.Settings";

struct Setting {
    const char* group;
    const char* key;
};

// Desktops have two settings for this: a switch for animations, and a factor for their duration.
const Setting animations{"org.gnome.desktop.interface", "enable-animations"};
const Setting textFactor{"org.gnome.desktop.interface", "text-scaling-factor"};
const Setting durationFactor{"org.kde.kdeglobals.KDE", "AnimationDurationFactor"};

bool is(const Setting& setting, const QString& group, const QString& key) {
    return group == text(setting.group) && key == text(setting.key);
}

bool isNothing(const QVariant& factor) {
    bool isNumber = false;
    const double value = factor.toDouble(&isNumber);
    return isNumber && value <= 0;
}

} // namespace

DesktopSettings::DesktopSettings(QObject* parent) : QObject(parent) {
    QDBusConnection::sessionBus().connect(text(service), text(path), text(settings), text("SettingChanged"),
                                          this, SLOT(take(QString, QString, QDBusVariant)));
    for (const auto& setting : {animations, durationFactor, textFactor}) {
        ask(text(setting.group), text(setting.key));
    }
}

void DesktopSettings::ask(const QString& group, const QString& key) {
    auto call = QDBusMessage::createMethodCall(text(service), text(path), text(settings), text("Read"));
    call.setArguments({group, key});
    auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, group, key] {
        watcher->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        if (reply.isValid()) {
            take(group, key, reply.value());
        }
    });
}

void DesktopSettings::take(const QString& group, const QString& key, const QDBusVariant& value) {
    QVariant inner = value.variant();
    // A read wraps the value twice, the signal once.
    while (inner.canConvert<QDBusVariant>()) {
        inner = inner.value<QDBusVariant>().variant();
    }
    if (is(textFactor, group, key)) {
        if (const double factor = inner.toDouble(); factor > 0) {
            emit textScaled(factor);
        }
        return;
    }
    if (is(animations, group, key)) {
        hasNoAnimations_ = !inner.toBool();
    } else if (is(durationFactor, group, key)) {
        hasNoDuration_ = isNothing(inner);
    } else {
        return;
    }
    emit reducedChanged(hasNoAnimations_ || hasNoDuration_);
}

} // namespace lumeo
