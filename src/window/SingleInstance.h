#pragma once

#include <QByteArray>
#include <QLocalServer>
#include <QLockFile>
#include <QObject>
#include <QString>

#include <chrono>
#include <memory>

class QLocalSocket;

namespace lumeo {

/// What a start of the program asks for.
struct Start {
    bool showsSettings = false;
    QByteArray activationToken; ///< the desktop's permission to come to the front; empty when it gives none
};

/// Lets each user run the program once. A second start tells the first one and ends. Main thread only.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    /// `name` distinguishes programs. The socket and the lock of that name belong to the user.
    explicit SingleInstance(const QString& name, QObject* parent = nullptr);

    /// True when no other instance runs, or when none answers within `patience`. Later starts will reach this
    /// one. False when another instance was told about this start.
    [[nodiscard]] bool claim(const Start& start,
                             std::chrono::milliseconds patience = std::chrono::seconds(2));

signals:
    void startedAgain(const Start& start); ///< somebody tried to start a second instance

private:
    [[nodiscard]] static bool tell(const QString& address, const Start& start,
                                   std::chrono::milliseconds patience);
    void hear(QLocalSocket& visitor);

    QString address_; ///< empty when the user has no folder for sockets
    std::unique_ptr<QLockFile> lock_;
    QLocalServer server_;
};

} // namespace lumeo
