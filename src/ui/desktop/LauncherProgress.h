#pragma once

#include <QObject>
#include <QString>

#include <optional>

namespace lumeo {

/// Shows how far a run has come on the program's icon, on desktops that listen for it. Main thread only.
class LauncherProgress : public QObject {
    Q_OBJECT

public:
    /// `desktopFileName` is the program's desktop entry, without its suffix.
    explicit LauncherProgress(const QString& desktopFileName, QObject* parent = nullptr);
    ~LauncherProgress() override; ///< takes the bar away

    /// A fraction from 0 to 1; absent when nothing is running. The desktop is told of whole percents.
    void show(std::optional<double> fraction);

private:
    void send() const;

    QString entry_;
    std::optional<int> percent_;
};

} // namespace lumeo
