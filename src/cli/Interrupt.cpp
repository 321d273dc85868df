#include "cli/Interrupt.h"

#include <array>
#include <csignal>

#include <unistd.h>

namespace lumeo::cli {
namespace {

sigset_t watchedSignals() {
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : std::array{SIGINT, SIGTERM, SIGHUP}) {
        sigaddset(&set, signal);
    }
    return set;
}

} // namespace

Interrupt::Interrupt() {
    const sigset_t set = watchedSignals();
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
    watcher_ = std::jthread([this, set](const std::stop_token& ended) {
        int signal = 0;
        while (sigwait(&set, &signal) == 0 && !ended.stop_requested()) {
            // Asked twice, the program goes at once: a dying disk may hold the first stop up for minutes,
            // and a run may be killed at any moment without losing a file.
            if (!source_.request_stop()) {
                _exit(128 + signal);
            }
        }
    });
}

Interrupt::~Interrupt() {
    watcher_.request_stop();
    // The watcher sits in sigwait() until a signal comes; this one ends it.
    pthread_kill(watcher_.native_handle(), SIGHUP);
}

} // namespace lumeo::cli
