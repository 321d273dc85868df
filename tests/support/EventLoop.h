#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>

#include <chrono>
#include <thread>

namespace lumeo::testing {

/// Runs the event loop of this thread until `condition` holds. False when that takes longer than a healthy
/// program needs.
template<class Condition>
[[nodiscard]] bool waitUntil(Condition condition) {
    const QDeadlineTimer deadline(std::chrono::seconds(60));
    while (!condition()) {
        if (deadline.hasExpired()) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

} // namespace lumeo::testing
