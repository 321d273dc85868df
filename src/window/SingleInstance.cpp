#include "window/SingleInstance.h"

#include <QDir>
#include <QLocalSocket>
#include <QStandardPaths>

#include <unistd.h>

namespace lumeo {
namespace {

/// Long enough for a program that is busy drawing, short enough for one that hangs.
constexpr int patienceMilliseconds = 1000;

QString socketAddress(const QString& name) {
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return folder.isEmpty() ? QStringLiteral("%1/%2-%3").arg(QDir::tempPath(), name).arg(::getuid())
                            : folder + u'/' + name;
}

} // namespace

SingleInstance::SingleInstance(const QString& name, QObject* parent)
    : QObject(parent), address_(socketAddress(name)) {
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server_, &QLocalServer::newConnection, this, [this] {
        while (auto* visitor = server_.nextPendingConnection()) {
            visitor->deleteLater();
            emit startedAgain();
        }
    });
}

bool SingleInstance::claim() {
    QLocalSocket first;
    first.connectToServer(address_);
    if (first.waitForConnected(patienceMilliseconds)) {
        return false;
    }
    // What is left there belongs to a program that has ended. Where no address can be had, two may run.
    QLocalServer::removeServer(address_);
    std::ignore = server_.listen(address_);
    return true;
}

} // namespace lumeo
