#pragma once

#include <QObject>
#include <QString>
#include <QVariantMap>

#include <functional>

class QDBusPendingCallWatcher;
class QWindow;

namespace lumeo {

/// One question to the desktop's portal for files, which shows the dialog in a process of its own.
/// Deletes itself once it has answered. Main thread only.
class PortalRequest : public QObject {
    Q_OBJECT

public:
    /// The URIs chosen; none when the user cancelled or the portal went away meanwhile.
    using Answer = std::function<void(const QStringList& uris)>;
    using Refusal = std::function<void()>;

    /// Calls `method` ("OpenFile", "SaveFile") of the portal with a dialog over `window` (may be null).
    /// Exactly one of `answer` and `refused` is called, later: `refused` where no portal shows such a
    /// dialog, or one tried and failed. Neither is when `parent` is destroyed first.
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
