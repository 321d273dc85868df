#pragma once

#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <QString>

class QDBusPendingCallWatcher;

namespace lumeo {

/// Prevents the machine from sleeping during a run. It uses the desktop's portal, or the login manager where
/// there is no portal. Where neither answers, the machine may sleep. Main thread only.
class SleepGuard : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;
    ~SleepGuard() override; ///< lets the machine sleep again

    /// Asks the desktop, or releases what it granted. The same value again does nothing.
    void keepAwake(bool awake);

private:
    void askPortal();
    void askLoginManager();
    void release();

    bool isWanted_ = false;
    int number_ = 0;                    ///< of the latest request; grants for older ones are released
    QString request_;                   ///< granted by the portal; empty when there is no grant
    QDBusUnixFileDescriptor inhibitor_; ///< granted by the login manager; closing it releases the grant
};

} // namespace lumeo
