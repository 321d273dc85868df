#pragma once

#include <QObject>
#include <QString>
#include <QVariantMap>

#include <functional>

class QDBusPendingCallWatcher;
class QWindow;

namespace lumeo {

/// One question to the desktop's portal for files. The portal shows the dialog in its own process. The
/// request deletes itself after the answer. Main thread only.
class PortalRequest : public QObject {
    Q_OBJECT

public:
    /// The chosen URIs. Empty when the user cancelled or the portal exited.
    using Answer = std::function<void(const QStringList& uris)>;
    using Refusal = std::function<void()>;

    /// Calls `method` ("OpenFile", "SaveFile") of the portal with a dialog over `window` (may be null).
    /// Later, exactly one of `answer` and `refused` is called. It is `refused` when no portal shows such a
    /// dialog. Neither is called when `parent` is destroyed first.
    static void ask(const QString& method, const QString& title, QVariantMap options, const QWindow* window,
                    Answer answer, Refusal refused, QObject* parent);

private:
    PortalRequest(Answer answer, Refusal refused, QObject* parent);
    void call(const QString& method, const QString& title, QVariantMap options, const QWindow* window);
    void listen(const QString& handle);
    void refuse();
    void finish(const QStringList& uris);

private slots:
    void called(QDBusPendingCallWatcher* watcher);
    void respond(uint response, const QVariantMap& results);

private:
    Answer answer_;
    Refusal refused_;
    QString handle_;
};

} // namespace lumeo
