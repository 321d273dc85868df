#pragma once

#include <QDBusVariant> // needs the full type: D-Bus must know what the slot takes
#include <QObject>

namespace lumeo {

/// The user's settings for the whole desktop, from its settings portal: less motion, larger texts. Before the
/// portal has answered, and where there is none, the usual values apply. Main thread only.
class DesktopSettings : public QObject {
    Q_OBJECT

public:
    /// Asks at once. The answers come with the signals.
    explicit DesktopSettings(QObject* parent = nullptr);

signals:
    void reducedChanged(bool reduced);
    void textScaled(double factor); ///< 1 is the usual size

private slots:
    void take(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void ask(const QString& group, const QString& key);

    // One desktop may also offer another desktop's settings. One setting that asks for less motion is enough.
    bool hasNoAnimations_ = false;
    bool hasNoDuration_ = false;
};

} // namespace lumeo
