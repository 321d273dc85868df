#include "platform/Interrupt.h"

#include "platform/PosixHandle.h"

#include <array>
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <optional>

#include <sys/eventfd.h>
#include <unistd.h>

namespace lumeo {
namespace {

constexpr std::array watchedSignals{SIGINT, SIGTERM, SIGHUP};
constexpr std::chrono::seconds patience{2};

// The handler tells the watcher through one counter, which counts Ctrl-C apart from all other signals.
constexpr std::uint64_t interruptKey = std::uint64_t{1} << 32U;
constexpr std::uint64_t otherSignal = 1;
constexpr std::uint64_t end = std::uint64_t{1} << 48U;

std::atomic<int> messages = -1; // an event counter: a handler may do nothing but write to it

void send(std::uint64_t message) {
    const int kept = errno;
    [[maybe_unused]] const ssize_t sent = write(messages, &message, sizeof message);
    errno = kept;
}

extern "C" void handleSignal(int signal) {
    send(signal == SIGINT ? interruptKey : otherSignal);
}

bool isIgnored(int signal) {
    struct sigaction now {};
    return sigaction(signal, nullptr, &now) == 0 && now.sa_handler == SIG_IGN;
}

void handle(int signal, void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(signal, &action, nullptr);
}

} // namespace

Interrupt::Interrupt() {
    messages = eventfd(0, EFD_CLOEXEC);
    watcher_ = std::jthread([this] { watch(); });
    for (const int signal : watchedSignals) {
        if (!isIgnored(signal)) {
            handle(signal, handleSignal);
        }
    }
}

Interrupt::~Interrupt() {
    for (const int signal : watchedSignals) {
        if (!isIgnored(signal)) {
            handle(signal, SIG_DFL);
        }
    }
    send(end);
    watcher_.join();
    close(messages.exchange(-1));
}

void Interrupt::watch() {
    std::optional<std::chrono::steady_clock::time_point> firstKey;
    std::uint64_t message = 0;
    while (retrying([&] { return read(messages, &message, sizeof message); }) == sizeof message &&
           message < end) {
        const auto now = std::chrono::steady_clock::now();
        source_.request_stop();
        if (message < interruptKey) {
            continue;
        }
        // A dying disk can delay the stop for minutes. Killing a run loses no file at any moment, but only a
        // user who insists should do it. A closing terminal sends its signals in pairs, and those must not
        // count as insisting.
        if (firstKey && now - *firstKey >= patience) {
            _exit(128 + SIGINT);
        }
        firstKey = firstKey.value_or(now);
    }
}

void turnWriteSignalsIntoErrors() {
    handle(SIGPIPE, SIG_IGN);
    handle(SIGXFSZ, SIG_IGN);
}

} // namespace lumeo
