#pragma once

#include <QObject>
#include <QString>

#include <optional>

namespace lumeo {

/// Shows the progress of a run on the program's icon, on desktops that support it. Main thread only.
class LauncherProgress : public QObject {
    Q_OBJECT

public:
    /// `desktopFileName` is the program's desktop entry, without its suffix.
    explicit LauncherProgress(const QString& desktopFileName, QObject* parent = nullptr);
    ~LauncherProgress() override; ///< removes the bar

    /// A fraction from 0 to 1. Absent when nothing is running. The desktop only gets whole percents.
    void show(std::optional<double> fraction);

private:
    void send() const;

    QString entry_;
    std::optional<int> percent_;
};

} // namespace lumeo
