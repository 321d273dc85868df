#pragma once

#include <QLocalServer>
#include <QObject>
#include <QString>

namespace lumeo {

/// Lets one user run the program once: a second start tells the first one and ends. Main thread only.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    /// `name` tells programs apart; the socket of that name is the user's own.
    explicit SingleInstance(const QString& name, QObject* parent = nullptr);

    /// True when nobody else runs: others will reach this one from now on. False when another one has
    /// been told of this start.
    [[nodiscard]] bool claim();

signals:
    void startedAgain(); ///< somebody tried to start a second one

private:
    QString address_;
    QLocalServer server_;
};

} // namespace lumeo
