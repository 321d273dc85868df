#pragma once

#include <QDBusVariant> // whole, or the bus cannot tell what the slot takes
#include <QObject>

namespace lumeo {

/// Whether the user has asked the desktop for less motion, by its portal of settings. Until that has
/// answered, and where there is none, motion is not reduced. Main thread only.
class DesktopMotion : public QObject {
    Q_OBJECT

public:
    /// Asks at once; the answer comes with `reducedChanged`.
    explicit DesktopMotion(QObject* parent = nullptr);

signals:
    void reducedChanged(bool reduced);

private slots:
    void take(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void ask(const QString& group, const QString& key);

    // Desktops may answer for each other's settings: one that asks for less motion is enough.
    bool hasNoAnimations_ = false;
    bool hasNoDuration_ = false;
};

} // namespace lumeo
