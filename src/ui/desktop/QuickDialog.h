#pragma once

#include <QObject>
#include <QString>
#include <QUrl>
#include <QVariantMap>

#include <functional>

class QQmlEngine;
class QWindow;

namespace lumeo {

/// A dialog of the toolkit's own, for desktops without a portal. It chooses one file or folder.
struct QuickDialog {
    /// The URL chosen; empty when the user cancelled.
    using Answer = std::function<void(const QUrl& url)>;

    /// Opens the dialog `name` of this module over `window`. `answer` is called once, later; never when
    /// `parent` is destroyed first.
    static void open(QQmlEngine& engine, const QString& name, QVariantMap properties, QWindow* window,
                     Answer answer, QObject* parent);
};

} // namespace lumeo
