#pragma once

#include "app/BackgroundJobs.h"
#include "platform/Mutex.h"

#include <memory>
#include <optional>
#include <stop_token>
#include <utility>
#include <variant>

namespace lumeo {

/// Brings the latest of many values from a job to the main thread. A value that was not taken is replaced by
/// the next one, so the event loop never holds more than one event for it.
template<class Value>
class LatestValue : public std::enable_shared_from_this<LatestValue<Value>> {
public:
    /// Any thread. `take(value)` is called on the thread of `context`, which must live as long as the job.
    template<class Take>
    void post(QObject& context, Value value, Take take) {
        const MutexGuard guard(mutex_);
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
        const MutexGuard guard(mutex_);
        return *std::exchange(value_, std::nullopt);
    }

    Mutex mutex_;
    std::optional<Value> value_ LUMEO_GUARDED_BY(mutex_);
};

/// One kind of long work, of which only the latest start counts. Starting it again stops the earlier work and
/// drops its reports and its result. Main thread only.
template<class Progress = std::monostate>
class Job {
public:
    /// Both must outlive the job. `context` lives on the main thread.
    Job(BackgroundJobs& threads, QObject& context) : threads_(threads), context_(context) {}

    /// Runs `work(stop_token, report)` on a separate thread. There `report(Progress)` may be called as often
    /// as there is something new. On the main thread, `show(Progress)` gets the latest of these, and
    /// `finish(result)` gets the result of the work at the end.
    template<class Work, class Show, class Finish>
    void start(Work work, Show show, Finish finish) {
        drop();
        isRunning_ = true;
        const auto latest = std::make_shared<LatestValue<Progress>>();
        auto showIfNewest = [this, number = number_, show = std::move(show)](Progress progress) {
            if (number == number_) {
                show(std::move(progress));
            }
        };
        stop_ = threads_.start(
            [this, latest, showIfNewest = std::move(showIfNewest),
             work = std::move(work)](const std::stop_token& stop) mutable {
                return work(stop, [&](Progress progress) {
                    latest->post(context_, std::move(progress), showIfNewest);
                });
            },
            [this, number = number_, finish = std::move(finish)](auto result) {
                if (number == number_) {
                    isRunning_ = false;
                    finish(std::move(result));
                }
            });
    }

    /// The same for work without progress: `work(stop_token)`.
    template<class Work, class Finish>
    void start(Work work, Finish finish) {
        start([work = std::move(work)](const std::stop_token& stop,
                                       const auto& /*report*/) mutable { return work(stop); },
              [](const Progress& /*progress*/) {}, std::move(finish));
    }

    /// Asks the work to end early. Its result is still delivered.
    void stop() { stop_.request_stop(); }
    /// The same for another thread, because the functions that react to the stop may take long.
    [[nodiscard]] std::stop_source stopSource() const { return stop_; }

    /// Asks the work to end. Neither its progress nor its result is delivered.
    void drop() {
        stop();
        ++number_;
        isRunning_ = false;
    }

    [[nodiscard]] bool isRunning() const { return isRunning_; } ///< until its result is delivered or dropped

private:
    BackgroundJobs& threads_;
    QObject& context_;
    std::stop_source stop_{std::nostopstate};
    int number_ = 0; ///< of the latest work; reports of older work are ignored
    bool isRunning_ = false;
};

} // namespace lumeo
