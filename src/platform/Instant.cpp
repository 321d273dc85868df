#include "platform/Instant.h"

#include <cmath>

namespace lumeo {

double secondsSinceCodedEpoch(Instant instant) {
    return std::chrono::duration<double>(instant - codedEpoch).count();
}

Instant instantFromCodedSeconds(double seconds) {
    // Half of what 64 bits of microseconds can hold. That is 146,000 years in each direction and safe to add
    // to any epoch.
    constexpr double limit = 4.6e12;
    if (std::isnan(seconds)) {
        return codedEpoch;
    }
    const double bounded = std::fmin(std::fmax(seconds, -limit), limit);
    return codedEpoch + std::chrono::microseconds(std::llround(bounded * 1e6));
}

} // namespace lumeo
