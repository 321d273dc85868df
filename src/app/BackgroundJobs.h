#pragma once

#include <QMetaObject>
#include <QObject>

#include <list>
#include <memory>
#include <stop_token>
#include <thread>
#include <type_traits>
#include <utility>

namespace lumeo {

/// Runs long work on separate threads and brings the results back through the event loop. Main thread only.
/// The destructor asks every job to stop and waits for it. The results are then dropped.
class BackgroundJobs {
public:
    /// Results are delivered on the thread of `context`, which must outlive this object. The owner of this
    /// object must outlive the events of `context`.
    explicit BackgroundJobs(QObject& context) : context_(context) {}
    BackgroundJobs(const BackgroundJobs&) = delete;
    BackgroundJobs& operator=(const BackgroundJobs&) = delete;

    ~BackgroundJobs() {
        for (std::jthread& thread : threads_) {
            thread.request_stop();
        }
    }

    /// Runs `work(stop_token)` on a separate thread and then `finish(result)` on the main thread.
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
                    thread->join(); // it has nothing left to do; unjoined it would be told to stop
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

} // namespace lumeo
