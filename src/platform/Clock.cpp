#include "platform/Clock.h"

namespace lumeo {

Instant SystemClock::now() const {
    return std::chrono::time_point_cast<std::chrono::microseconds>(std::chrono::system_clock::now());
}

std::chrono::nanoseconds SystemClock::elapsed() const {
    return std::chrono::steady_clock::now().time_since_epoch();
}

} // namespace lumeo
