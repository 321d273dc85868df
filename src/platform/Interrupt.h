#pragma once

#include <stop_token>
#include <thread>

namespace lumeo {

/// Turns Ctrl-C, a closed terminal, the end of a session and a polite kill into a stop request, whichever
/// comes first and however often. Only a second Ctrl-C, two seconds or more after the first, ends the program
/// at once. A signal that was ignored when the program started stays ignored, as nohup wants it.
///
/// One at a time; main thread.
class Interrupt {
public:
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    /// Requested on a thread of its own.
    [[nodiscard]] std::stop_token token() const { return source_.get_token(); }
    [[nodiscard]] bool requested() const { return source_.stop_requested(); }

private:
    void watch();

    std::stop_source source_;
    std::jthread watcher_;
};

/// Makes a write beyond the allowed file size, or to a reader that went away, an error of that write instead
/// of the end of the program.
void turnWriteSignalsIntoErrors();

} // namespace lumeo
