#include "platform/LocalCalendar.h"

#include "platform/CivilTime.h"

#include <memory>

namespace lumeo {
namespace {

/// A copy of the default zone shares its tables. Keeping our own zone would not be cheaper: to see whether it
/// is still the default, we would have to copy the default as well.
std::unique_ptr<const icu::TimeZone> currentZone() {
    return std::unique_ptr<const icu::TimeZone>(icu::TimeZone::createDefault());
}

} // namespace

std::optional<Instant> LocalCalendar::compose(const WallTime& time) {
    return instantInZone(time, *currentZone());
}

WallTime LocalCalendar::components(Instant instant) {
    return wallTimeInZone(instant, *currentZone());
}

} // namespace lumeo
