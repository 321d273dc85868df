#pragma once

#include "app/Desktop.h"

#include <QObject>
#include <QPointer>
#include <QWindow>

class QQmlEngine;

namespace lumeo {

/// The desktop's own save panel, through its portal, or Qt's where there is no portal. The panel asks before
/// a file is replaced, so the name that the user confirmed is used as it is.
class DesktopSavePanel final : public QObject, public SavePanel {
    Q_OBJECT

public:
    /// `engine` must outlive the panel.
    explicit DesktopSavePanel(QQmlEngine& engine, QObject* parent = nullptr)
        : QObject(parent), engine_(engine) {}

    /// The window that dialogs open over.
    void setWindow(QWindow* window) { window_ = window; }

    void choose(const SaveRequest& request, Answer answer) override;

private:
    QQmlEngine& engine_;
    QPointer<QWindow> window_;
};

} // namespace lumeo
