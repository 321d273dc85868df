#pragma once

#include <QDBusVariant> // needs the full type: D-Bus must know what the slot takes
#include <QObject>

namespace lumeo {

/// Whether the user has asked the desktop for less motion, according to its settings portal. Motion is not
/// reduced before the portal has answered, and where there is none. Main thread only.
class DesktopMotion : public QObject {
    Q_OBJECT

public:
    /// Asks at once. The answer comes with `reducedChanged`.
    explicit DesktopMotion(QObject* parent = nullptr);

signals:
    void reducedChanged(bool reduced);

private slots:
    void take(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void ask(const QString& group, const QString& key);

    // One desktop may also offer another desktop's settings. One setting that asks for less motion is enough.
    bool hasNoAnimations_ = false;
    bool hasNoDuration_ = false;
};

} // namespace lumeo
