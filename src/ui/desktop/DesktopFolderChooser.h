#pragma once

#include "app/Desktop.h"

#include <QObject>
#include <QPointer>
#include <QWindow>

class QQmlEngine;

namespace lumeo {

/// The desktop's own folder chooser, through its portal. Where there is no portal, Qt's chooser, which
/// chooses one folder at a time: the user adds more folders with more calls.
class DesktopFolderChooser final : public QObject, public FolderChooser {
    Q_OBJECT

public:
    /// `engine` must outlive the chooser.
    explicit DesktopFolderChooser(QQmlEngine& engine, QObject* parent = nullptr)
        : QObject(parent), engine_(engine) {}

    /// The window that dialogs open over.
    void setWindow(QWindow* window) { window_ = window; }

    void choose(const FolderRequest& request, Answer answer) override;

private:
    QQmlEngine& engine_;
    QPointer<QWindow> window_;
};

} // namespace lumeo
