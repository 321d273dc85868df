#pragma once

#include <stop_token>
#include <thread>

namespace lumeo::cli {

/// Turns Ctrl-C, a closed terminal and a polite kill into a stop request; the second one ends the
/// program at once. Make one before any other thread is started: the signals are blocked in this thread
/// and all that come after it.
class Interrupt {
public:
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    [[nodiscard]] std::stop_token token() const { return source_.get_token(); }
    [[nodiscard]] bool requested() const { return source_.stop_requested(); }

private:
    std::stop_source source_;
    std::jthread watcher_;
};

} // namespace lumeo::cli
