#include "media/helper/HelperProcess.h"

#include "media/helper/HelperSocket.h"
#include "platform/Mutex.h"

#include <algorithm>
#include <array>
#include <climits>
#include <csignal>
#include <string>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace lumeo {
namespace {

constexpr std::chrono::milliseconds stopInterval{20}; ///< how late a stop may be noticed

/// Reaps helpers that have ended, now or when the next helper ends.
void reapWhenEnded(pid_t process) {
    static Mutex mutex;
    static std::vector<pid_t> ended;
    const MutexGuard guard(mutex);
    ended.push_back(process);
    std::erase_if(ended, [](pid_t other) { return waitpid(other, nullptr, WNOHANG) != 0; });
}

bool isProgram(const FilePath& path) {
    return access(path.bytes().c_str(), X_OK) == 0;
}

} // namespace

std::optional<FilePath> HelperProcess::installed(std::string_view name) {
    std::string self(PATH_MAX, '\0');
    const ssize_t length = readlink("/proc/self/exe", self.data(), self.size());
    if (length <= 0 || static_cast<std::size_t>(length) == self.size()) {
        return std::nullopt;
    }
    self.resize(static_cast<std::size_t>(length));
    const FilePath folder = FilePath(self).parent();
    for (const FilePath& place :
         {folder.appending(name), folder.parent().appending("libexec/lumeo").appending(name)}) {
        if (isProgram(place)) {
            return place;
        }
    }
    return std::nullopt;
}

std::optional<HelperProcess> HelperProcess::start(const FilePath& program) {
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        return std::nullopt;
    }
    Descriptor ours(ends[0]);
    const Descriptor theirs(ends[1]);

    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_adddup2(&files, theirs.get(), STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&files, theirs.get(), STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addclosefrom_np(&files, STDERR_FILENO + 1);

    // The helper gets a session of its own, because Ctrl-C in the terminal is for the program. It starts with
    // the default signal settings that programs expect.
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t none;
    sigemptyset(&none);
    sigset_t all;
    sigfillset(&all);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setsigdefault(&attributes, &all);
    posix_spawnattr_setflags(&attributes,
                             POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSID);

    std::string name = program.bytes();
    std::array<char*, 2> arguments{name.data(), nullptr};
    pid_t process = -1;
    const int failure = posix_spawn(&process, name.c_str(), &files, &attributes, arguments.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    return failure == 0 ? std::optional(HelperProcess(process, std::move(ours))) : std::nullopt;
}

HelperProcess::HelperProcess(HelperProcess&& other) noexcept
    : process_(std::exchange(other.process_, -1)), socket_(std::move(other.socket_)) {}

HelperProcess& HelperProcess::operator=(HelperProcess&& other) noexcept {
    std::swap(process_, other.process_);
    std::swap(socket_, other.socket_);
    return *this;
}

HelperProcess::~HelperProcess() {
    if (process_ > 0) {
        kill(process_, SIGKILL);
        reapWhenEnded(process_);
    }
}

bool HelperProcess::hasSpoken() const {
    pollfd waiting{socket_.get(), POLLIN, 0};
    return poll(&waiting, 1, 0) != 0;
}

bool HelperProcess::send(std::span<const std::byte> record, std::optional<int> descriptor) {
    return sendRecord(socket_.get(), record, descriptor);
}

bool HelperProcess::receive(std::span<std::byte> record, std::chrono::steady_clock::time_point deadline,
                            const std::stop_token& stop) {
    using std::chrono::milliseconds;
    while (!record.empty()) {
        const auto left = std::chrono::ceil<milliseconds>(deadline - std::chrono::steady_clock::now());
        if (left <= milliseconds::zero() || stop.stop_requested()) {
            return false;
        }
        pollfd waiting{socket_.get(), POLLIN, 0};
        const int ready = poll(&waiting, 1, static_cast<int>(std::min(left, stopInterval).count()));
        if (ready < 0 && errno != EINTR) {
            return false;
        }
        if (ready <= 0) {
            continue;
        }
        const std::optional<std::size_t> count = receiveWhatIsThere(record);
        if (!count) {
            return false;
        }
        record = record.subspan(*count);
    }
    return true;
}

std::optional<std::size_t> HelperProcess::receiveWhatIsThere(std::span<std::byte> space) {
    const ssize_t count =
        retrying([&] { return recv(socket_.get(), space.data(), space.size(), MSG_DONTWAIT); });
    if (count == 0 || (count < 0 && errno != EAGAIN)) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(std::max<ssize_t>(count, 0));
}

} // namespace lumeo
