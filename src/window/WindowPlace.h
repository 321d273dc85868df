#pragma once

#include <QObject>
#include <QRect>
#include <QTimer>

class QSettings;
class QWindow;

namespace lumeo {

/// Remembers the position and size of a window between starts.
class WindowPlace : public QObject {
    Q_OBJECT

public:
    /// Puts the window where it was, if a screen is still there. Both must outlive this object.
    WindowPlace(QWindow& window, QSettings& settings, QObject* parent = nullptr);
    ~WindowPlace() override; ///< stores the place

private:
    void restore();
    void note(); ///< the place, unless the window fills the screen

    QWindow& window_;
    QSettings& settings_;
    QRect place_;
    QTimer settled_; ///< runs while the place changes
};

} // namespace lumeo
