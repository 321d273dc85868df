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

/// A helper process at work, spoken to over a socket that is its standard input and output; its errors go
/// nowhere. Used by one thread at a time. Its destructor ends it at once and does not wait for that end: it
/// may be hanging on a disk that does not answer.
class HelperProcess {
public:
    /// Where a helper stands: beside the program, as in a build, or where it is installed. Absent when it is
    /// at neither place.
    static std::optional<FilePath> installed(std::string_view name);

    /// Absent when it cannot be started.
    static std::optional<HelperProcess> start(const FilePath& program);

    HelperProcess(HelperProcess&& other) noexcept;
    HelperProcess& operator=(HelperProcess&& other) noexcept;
    ~HelperProcess();

    /// For an event loop that waits until there is something to receive.
    [[nodiscard]] int socket() const { return socket_.get(); }

    /// True when it has something to say, or has gone: asked before a question, either is a reason to end it.
    [[nodiscard]] bool hasSpoken() const;

    /// False when it has gone.
    bool send(std::span<const std::byte> record, std::optional<int> descriptor = {});

    /// Waits for as many bytes. False when it goes first, when the time is over or a stop is requested.
    bool receive(std::span<std::byte> record, std::chrono::steady_clock::time_point deadline,
                 const std::stop_token& stop);

    /// What has come so far and is not received yet, as much of it as fits; how much that was. Absent when
    /// the helper has gone.
    std::optional<std::size_t> receiveWhatIsThere(std::span<std::byte> space);

private:
    HelperProcess(pid_t process, Descriptor socket) : process_(process), socket_(std::move(socket)) {}

    pid_t process_ = -1;
    Descriptor socket_;
};

} // namespace lumeo
