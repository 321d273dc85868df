#pragma once

#include <memory>
#include <mutex>
#include <utility>

namespace lumeo {

/// Carries a pause to a service on another thread. A service forgets a pause that reaches it before it
/// has begun; hold() renews it.
template<class Service>
class PauseSwitch {
public:
    explicit PauseSwitch(std::shared_ptr<Service> service) : service_(std::move(service)) {}

    void set(bool paused) {
        const std::scoped_lock lock(mutex_);
        isPaused_ = paused;
        if (paused) {
            service_->pause();
        } else {
            service_->resume();
        }
    }

    /// To be called on the service's own thread while it works.
    void hold() {
        const std::scoped_lock lock(mutex_);
        if (isPaused_) {
            service_->pause();
        }
    }

private:
    std::mutex mutex_;
    bool isPaused_ = false; ///< guarded by mutex_
    std::shared_ptr<Service> service_;
};

} // namespace lumeo
