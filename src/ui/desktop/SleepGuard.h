#pragma once

#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <QString>

class QDBusPendingCallWatcher;

namespace lumeo {

/// Keeps the machine from falling asleep while a run works: through the desktop's portal, or through the
/// login manager where there is no portal. Where neither answers, the machine may sleep. Main thread only.
class SleepGuard : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;
    ~SleepGuard() override; ///< lets the machine sleep again

    /// Asks the desktop, or gives back what it granted. The same value again does nothing.
    void keepAwake(bool awake);

private:
    void askPortal();
    void askLoginManager();
    void release();

    bool isWanted_ = false;
    int number_ = 0;                    ///< of the latest wish: answers to older ones are given back
    QString request_;                   ///< granted by the portal; empty while nothing is
    QDBusUnixFileDescriptor inhibitor_; ///< granted by the login manager; closing it gives it back
};

} // namespace lumeo
