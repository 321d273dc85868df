#include "ui/desktop/LauncherProgress.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

#include <algorithm>
#include <cmath>

namespace lumeo {

LauncherProgress::LauncherProgress(const QString& desktopFileName, QObject* parent)
    : QObject(parent), entry_(QStringLiteral("application://%1.desktop").arg(desktopFileName)) {}

LauncherProgress::~LauncherProgress() {
    show(std::nullopt);
}

void LauncherProgress::show(std::optional<double> fraction) {
    std::optional<int> percent;
    if (fraction) {
        percent = static_cast<int>(std::floor(std::clamp(*fraction, 0.0, 1.0) * 100));
    }
    if (percent != percent_) {
        percent_ = percent;
        send();
    }
}

void LauncherProgress::send() const {
    auto update = QDBusMessage::createSignal(QStringLiteral("/org/lumeo/Lumeo"),
                                             QStringLiteral("com.canonical.Unity.LauncherEntry"),
                                             QStringLiteral("Update"));
    update << entry_
           << QVariantMap{{QStringLiteral("progress"), percent_.value_or(0) / 100.0},
                          {QStringLiteral("progress-visible"), percent_.has_value()}};
    QDBusConnection::sessionBus().send(update);
}

} // namespace lumeo
