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

} // namespace lumeo
