#include "platform/LocalCalendar.h"

#include "platform/CivilTime.h"

#include <cstdlib>
#include <memory>
#include <string_view>

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

std::optional<std::string> LocalCalendar::timeZoneProblem() {
    const char* const variable = std::getenv("TZ");
    std::string_view wanted = variable == nullptr ? "" : variable;
    wanted.remove_prefix(wanted.starts_with(':') ? 1 : 0);
    if (wanted.empty() || wanted.starts_with('/')) { // a path leads to the zone's own file
        return std::nullopt;
    }
    const icu::StringPiece name(wanted.data(), static_cast<std::int32_t>(wanted.size()));
    const std::unique_ptr<const icu::TimeZone> zone(
        icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(name)));
    if (*zone != icu::TimeZone::getUnknown()) {
        return std::nullopt;
    }
    icu::UnicodeString used;
    currentZone()->getID(used);
    std::string text;
    used.toUTF8String(text);
    return "the time zone " + std::string(wanted) + " (TZ) is not understood; dates are read in " +
           (text == wanted ? "UTC" : text);
}

WallTime LocalCalendar::components(Instant instant) {
    return wallTimeInZone(instant, *currentZone());
}

} // namespace lumeo
