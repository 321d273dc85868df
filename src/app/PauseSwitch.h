#pragma once

#include "platform/Mutex.h"

#include <memory>
#include <utility>

namespace lumeo {

/// Passes a pause to a service on another thread. A service forgets a pause that comes before it has started,
/// so hold() repeats it.
template<class Service>
class PauseSwitch {
public:
    explicit PauseSwitch(std::shared_ptr<Service> service) : service_(std::move(service)) {}

    void set(bool paused) {
        const MutexGuard guard(mutex_);
        isPaused_ = paused;
        if (paused) {
            service_->pause();
        } else {
            service_->resume();
        }
    }

    /// Must be called on the service's own thread while it works.
    void hold() {
        const MutexGuard guard(mutex_);
        if (isPaused_) {
            service_->pause();
        }
    }

private:
    Mutex mutex_;
    bool isPaused_ LUMEO_GUARDED_BY(mutex_) = false;
    std::shared_ptr<Service> service_;
};

} // namespace lumeo
