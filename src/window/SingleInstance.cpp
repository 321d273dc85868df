#include "window/SingleInstance.h"

#include <QDataStream>
#include <QDeadlineTimer>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>

namespace lumeo {
namespace {

/// The folder is one that no other user can write to.
QString socketAddress(const QString& name) {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    return folder.isEmpty() ? QString() : folder + u'/' + name;
}

int millisecondsLeft(const QDeadlineTimer& deadline) {
    return static_cast<int>(deadline.remainingTime());
}

} // namespace

SingleInstance::SingleInstance(const QString& name, QObject* parent)
    : QObject(parent), address_(socketAddress(name)) {
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server_, &QLocalServer::newConnection, this, [this] {
        while (auto* visitor = server_.nextPendingConnection()) {
            connect(visitor, &QLocalSocket::disconnected, visitor, &QObject::deleteLater);
            connect(visitor, &QLocalSocket::readyRead, this, [this, visitor] { hear(*visitor); });
            hear(*visitor);
        }
    });
}

bool SingleInstance::claim(const Start& start, std::chrono::milliseconds patience) {
    constexpr int mostHanging = 8;
    for (int hanging = 0; hanging < mostHanging && !address_.isEmpty(); ++hanging) {
        // A hanging instance keeps its address, so it can be reached again when it continues.
        const QString address = hanging == 0 ? address_ : address_ + u'-' + QString::number(hanging + 1);
        lock_ = std::make_unique<QLockFile>(address + QStringLiteral(".lock"));
        lock_->setStaleLockTime(0); // held as long as the program runs
        if (lock_->tryLock(0) || lock_->error() != QLockFile::LockFailedError) {
            // A socket that exists now was left by a program that has ended. If listening fails, a second
            // instance may start.
            QLocalServer::removeServer(address);
            std::ignore = server_.listen(address);
            return true;
        }
        if (tell(address, start, patience)) {
            return false;
        }
    }
    return true;
}

bool SingleInstance::tell(const QString& address, const Start& start, std::chrono::milliseconds patience) {
    const QDeadlineTimer deadline(patience);
    QLocalSocket first;
    first.connectToServer(address);
    while (!first.waitForConnected(millisecondsLeft(deadline))) {
        if (deadline.hasExpired()) {
            return false;
        }
        QThread::msleep(20); // it has the lock and will listen soon
        first.connectToServer(address);
    }
    QDataStream(&first) << start.showsSettings << start.activationToken;
    // A hanging program still accepts connections. Only its answer shows that it has received the message.
    return first.waitForBytesWritten(millisecondsLeft(deadline)) &&
           first.waitForReadyRead(millisecondsLeft(deadline));
}

void SingleInstance::hear(QLocalSocket& visitor) {
    Start start;
    QDataStream stream(&visitor);
    stream.startTransaction();
    stream >> start.showsSettings >> start.activationToken;
    if (stream.commitTransaction()) {
        emit startedAgain(start);
        visitor.putChar('\n');
        visitor.flush();
    }
}

} // namespace lumeo
