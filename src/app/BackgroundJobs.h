#pragma once

#include <QMetaObject>
#include <QObject>

#include <list>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>
#include <type_traits>
#include <utility>

namespace lumeo {

/// Long work on threads of its own, whose results come back through the event loop. Main thread only.
/// Destroying it asks every job to stop and waits for them; their results are dropped.
class BackgroundJobs {
public:
    /// Results are delivered on the thread of `context`, which must outlive this object and whose
    /// events this object's owner must not outlive.
    explicit BackgroundJobs(QObject& context) : context_(context) {}
    BackgroundJobs(const BackgroundJobs&) = delete;
    BackgroundJobs& operator=(const BackgroundJobs&) = delete;

    ~BackgroundJobs() {
        for (std::jthread& thread : threads_) {
            thread.request_stop();
        }
    }

    /// Runs `work(stop_token)` on a thread of its own and then `finish(result)` on the main one.
    template<class Work, class Finish>
    std::stop_source start(Work work, Finish finish) {
        using Outcome = std::invoke_result_t<Work&, std::stop_token>;
        const auto thread = threads_.emplace(threads_.end());
        *thread = std::jthread([this, thread, work = std::move(work),
                                finish = std::move(finish)](const std::stop_token& stop) mutable {
            auto outcome = std::make_shared<Outcome>(work(stop));
            QMetaObject::invokeMethod(
                &context_,
                [this, thread, outcome = std::move(outcome), finish = std::move(finish)] {
                    thread->join(); // it has nothing left to do; left unjoined it would be told to stop
                    threads_.erase(thread);
                    finish(std::move(*outcome));
                },
                Qt::QueuedConnection);
        });
        return thread->get_stop_source();
    }

private:
    QObject& context_;
    std::list<std::jthread> threads_;
};

/// Brings the latest of many values from a job to the main thread: values that come faster than they
/// are taken replace each other, so the event loop never holds more than one for it.
template<class Value>
class LatestValue : public std::enable_shared_from_this<LatestValue<Value>> {
public:
    /// Any thread. `take(value)` is called on the thread of `context`, which must live as long as the
    /// job does.
    template<class Take>
    void post(QObject& context, Value value, Take take) {
        const std::scoped_lock lock(mutex_);
        const bool isOnItsWay = value_.has_value();
        value_ = std::move(value);
        if (!isOnItsWay) {
            QMetaObject::invokeMethod(
                &context, [self = this->shared_from_this(), take = std::move(take)] { take(self->taken()); },
                Qt::QueuedConnection);
        }
    }

private:
    Value taken() {
        const std::scoped_lock lock(mutex_);
        return *std::exchange(value_, std::nullopt);
    }

    std::mutex mutex_;
    std::optional<Value> value_; ///< guarded by mutex_
};

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
