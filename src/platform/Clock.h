#pragma once

#include "platform/Instant.h"

#include <chrono>

namespace lumeo {

/// Where time comes from, so that tests can set it. Any thread may call.
class Clock {
public:
    virtual ~Clock() = default;

    /// The time of day, as the system believes it to be.
    [[nodiscard]] virtual Instant now() const = 0;

    /// Time that only moves forward, for measuring. Its zero has no meaning.
    [[nodiscard]] virtual std::chrono::nanoseconds elapsed() const = 0;
};

class SystemClock final : public Clock {
public:
    [[nodiscard]] Instant now() const override;
    [[nodiscard]] std::chrono::nanoseconds elapsed() const override;
};

} // namespace lumeo
