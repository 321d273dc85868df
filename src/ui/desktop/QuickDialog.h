#pragma once

#include <QObject>
#include <QString>
#include <QUrl>
#include <QVariantMap>

#include <functional>

class QQmlEngine;
class QWindow;

namespace lumeo {

/// One of Qt's own dialogs, for desktops without a portal. It chooses one file or folder.
struct QuickDialog {
    /// The chosen URL. Empty when the user cancelled.
    using Answer = std::function<void(const QUrl& url)>;

    /// Opens the dialog `name` of this module over `window`. `answer` is called once, later. It is not called
    /// when `parent` is destroyed first.
    static void open(QQmlEngine& engine, const QString& name, QVariantMap properties, QWindow* window,
                     Answer answer, QObject* parent);
};

} // namespace lumeo
