#include "platform/CivilTime.h"

#include <chrono>
#include <cstdint>

namespace lumeo {
namespace {

using std::chrono::seconds;

constexpr std::int64_t secondsPerDay = 86'400;

/// The calendar repeats to the day after 400 years. The years of std::chrono end at 32,767, so it is asked
/// about one such cycle only.
constexpr std::int64_t yearsPerCycle = 400;
constexpr std::int64_t daysPerCycle = 146'097;

struct FloorDivision {
    std::int64_t quotient;
    std::int64_t remainder; ///< never negative
};

constexpr FloorDivision floorDivide(std::int64_t value, std::int64_t by) {
    const std::int64_t remainder = ((value % by) + by) % by;
    return {(value - remainder) / by, remainder};
}

/// The wall time in seconds since 1970, as if the zone were UTC. Fields of any size cannot overflow it.
std::int64_t flatSeconds(const WallTime& time) {
    const auto [yearsCarried, month] = floorDivide(std::int64_t{time.month} - 1, 12);
    const auto [cycles, year] = floorDivide(time.year + yearsCarried, yearsPerCycle);
    const std::chrono::sys_days firstOfMonth =
        std::chrono::year(static_cast<int>(year)) / std::chrono::month(static_cast<unsigned>(month) + 1) / 1;
    const std::int64_t days =
        cycles * daysPerCycle + firstOfMonth.time_since_epoch().count() + std::int64_t{time.day} - 1;
    return days * secondsPerDay + std::int64_t{time.hour} * 3600 + std::int64_t{time.minute} * 60 +
           time.second;
}

WallTime wallTimeOf(std::int64_t flatSeconds) {
    const auto [days, secondOfDay] = floorDivide(flatSeconds, secondsPerDay);
    const auto [cycles, dayOfCycle] = floorDivide(days, daysPerCycle);
    const std::chrono::year_month_day date{std::chrono::sys_days(std::chrono::days(dayOfCycle))};
    return {.year = static_cast<int>(static_cast<int>(date.year()) + cycles * yearsPerCycle),
            .month = static_cast<int>(static_cast<unsigned>(date.month())),
            .day = static_cast<int>(static_cast<unsigned>(date.day())),
            .hour = static_cast<int>(secondOfDay / 3600),
            .minute = static_cast<int>(secondOfDay / 60 % 60),
            .second = static_cast<int>(secondOfDay % 60)};
}

std::optional<Instant> instantOf(std::int64_t secondsSince1970) {
    constexpr std::int64_t limit = std::chrono::floor<seconds>(Instant::duration::max()).count();
    if (secondsSince1970 < -limit || secondsSince1970 > limit) {
        return std::nullopt;
    }
    return Instant(seconds(secondsSince1970));
}

std::int64_t wholeSeconds(Instant instant) {
    return std::chrono::floor<seconds>(instant).time_since_epoch().count();
}

/// How far the zone's clocks are ahead of UTC. `isLocal` means that the seconds count the zone's own wall
/// time.
std::int64_t offsetSeconds(const icu::TimeZone& zone, std::int64_t secondsSince1970, bool isLocal) {
    std::int32_t standard = 0;
    std::int32_t daylightSaving = 0;
    UErrorCode status = U_ZERO_ERROR;
    zone.getOffset(static_cast<double>(secondsSince1970) * 1000, static_cast<UBool>(isLocal), standard,
                   daylightSaving, status);
    return U_SUCCESS(status) ? (standard + daylightSaving) / 1000 : 0;
}

} // namespace

bool isRealTime(const WallTime& time) {
    const auto isWithin = [](int value, int first, int last) { return value >= first && value <= last; };
    if (!isWithin(time.year, 1, 9999) || !isWithin(time.month, 1, 12) || !isWithin(time.day, 1, 31)) {
        return false; // a calendar's types would cut off values that are too large for them
    }
    const std::chrono::year_month_day date(std::chrono::year(time.year),
                                           std::chrono::month(static_cast<unsigned>(time.month)),
                                           std::chrono::day(static_cast<unsigned>(time.day)));
    return date.ok() && isWithin(time.hour, 0, 23) && isWithin(time.minute, 0, 59) &&
           isWithin(time.second, 0, 59);
}

std::optional<Instant> instantInUtc(const WallTime& time) {
    return instantOf(flatSeconds(time));
}

std::optional<Instant> instantInZone(const WallTime& time, const icu::TimeZone& zone) {
    const std::int64_t flat = flatSeconds(time);
    return instantOf(flat) ? instantOf(flat - offsetSeconds(zone, flat, true)) : std::nullopt;
}

WallTime wallTimeInUtc(Instant instant) {
    return wallTimeOf(wholeSeconds(instant));
}

WallTime wallTimeInZone(Instant instant, const icu::TimeZone& zone) {
    const std::int64_t utc = wholeSeconds(instant);
    return wallTimeOf(utc + offsetSeconds(zone, utc, false));
}

} // namespace lumeo
