#pragma once

#include <QByteArray>
#include <QLocalServer>
#include <QLockFile>
#include <QObject>
#include <QString>

#include <chrono>

class QLocalSocket;

namespace lumeo {

/// What a start of the program asks for.
struct Start {
    bool showsSettings = false;
    QByteArray activationToken; ///< the desktop's leave to come to the front; empty where it gives none
};

/// Lets one user run the program once: a second start tells the first one and ends. Main thread only.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    /// `name` tells programs apart; the socket and the lock of that name are the user's own.
    explicit SingleInstance(const QString& name, QObject* parent = nullptr);

    /// True when nobody else runs, or nobody who answers within `patience`; where nobody does, others will
    /// reach this one from now on. False when another one has been told of this start.
    [[nodiscard]] bool claim(const Start& start,
                             std::chrono::milliseconds patience = std::chrono::seconds(2));

signals:
    void startedAgain(const Start& start); ///< somebody tried to start a second one

private:
    [[nodiscard]] bool tell(const Start& start, std::chrono::milliseconds patience) const;
    void hear(QLocalSocket& visitor);

    QString address_; ///< empty where the user has no folder for sockets
    QLockFile lock_;
    QLocalServer server_;
};

} // namespace lumeo
