#pragma once

#include "platform/Clock.h"

#include <atomic>

namespace lumeo {

/// A clock that only moves when a test moves it. Any thread may move and read it.
class FakeClock final : public Clock {
public:
    explicit FakeClock(Instant start = codedEpoch) : start_(start) {}

    [[nodiscard]] Instant now() const override {
        return start_ + std::chrono::duration_cast<std::chrono::microseconds>(elapsed());
    }
    [[nodiscard]] std::chrono::nanoseconds elapsed() const override {
        return std::chrono::nanoseconds(elapsed_.load());
    }
    void advance(std::chrono::nanoseconds by) { elapsed_ += by.count(); }

private:
    Instant start_;
    std::atomic<std::int64_t> elapsed_{0};
};

} // namespace lumeo
