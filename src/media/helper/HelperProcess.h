#pragma once

#include "platform/FilePath.h"
#include "platform/PosixHandle.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <span>
#include <stop_token>
#include <string_view>

#include <sys/types.h>

namespace lumeo {

/// A running helper process. Its standard input and output are a socket to this program, and its errors are
/// discarded. Used by one thread at a time. The destructor ends it at once and does not wait for its end,
/// because it may be hanging on a disk that does not answer.
class HelperProcess {
public:
    /// The place of a helper: beside the program, as in a build, or where it is installed. Absent when it is
    /// at neither place.
    static std::optional<FilePath> installed(std::string_view name);

    /// Absent when the helper cannot be started.
    static std::optional<HelperProcess> start(const FilePath& program);

    HelperProcess(HelperProcess&& other) noexcept;
    HelperProcess& operator=(HelperProcess&& other) noexcept;
    ~HelperProcess();

    /// The socket, for an event loop that waits for something to receive.
    [[nodiscard]] int socket() const { return socket_.get(); }

    /// True when it has sent something or has exited. Before a question, both are reasons to end it.
    [[nodiscard]] bool hasSpoken() const;

    /// False when the helper has exited.
    bool send(std::span<const std::byte> record, std::optional<int> descriptor = {});

    /// Waits until `record` is full. False when the helper exits first, when the time is over, or when a stop
    /// is requested.
    bool receive(std::span<std::byte> record, std::chrono::steady_clock::time_point deadline,
                 const std::stop_token& stop);

    /// Receives what has arrived so far, as much as fits, and returns its length. Absent when the helper has
    /// exited.
    std::optional<std::size_t> receiveWhatIsThere(std::span<std::byte> space);

private:
    HelperProcess(pid_t process, Descriptor socket) : process_(process), socket_(std::move(socket)) {}

    pid_t process_ = -1;
    Descriptor socket_;
};

} // namespace lumeo
