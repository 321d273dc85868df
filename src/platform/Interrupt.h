#pragma once

#include <stop_token>
#include <thread>

namespace lumeo {

/// Turns Ctrl-C, a closed terminal, the end of a session and SIGTERM into one stop request, however many of
/// them come. A second Ctrl-C ends the program at once if it comes two seconds or more after the first. A
/// signal that was ignored when the program started stays ignored, which nohup needs.
///
/// Only one may exist at a time. Main thread only.
class Interrupt {
public:
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    /// The stop is requested on a separate thread.
    [[nodiscard]] std::stop_token token() const { return source_.get_token(); }
    [[nodiscard]] bool requested() const { return source_.stop_requested(); }

private:
    void watch();

    std::stop_source source_;
    std::jthread watcher_;
};

/// A write beyond the allowed file size, or to a reader that is gone, then fails as a write and does not end
/// the program.
void turnWriteSignalsIntoErrors();

} // namespace lumeo
