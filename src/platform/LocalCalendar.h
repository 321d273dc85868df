#pragma once

#include "platform/Instant.h"

#include <optional>
#include <string>

namespace lumeo {

/// What a clock and a calendar on the wall show. Months and days count from 1.
struct WallTime {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    friend bool operator==(const WallTime&, const WallTime&) = default;
};

/// The proleptic Gregorian calendar in the user's time zone. This is the zone at the start of the process, or
/// the one that was made the default later (icu::TimeZone::adoptDefault). It is looked up at every call. Any
/// thread may call.
struct LocalCalendar {
    /// The instant at which the wall shows `time`. Fields beyond their range carry over (30 February is 1 or
    /// 2 March). A time that a clock change skips is read as before the change, so 02:30 becomes 03:30. A
    /// time that occurs twice is read as after the change. Absent when no Instant can hold the result.
    static std::optional<Instant> compose(const WallTime& time);

    /// One sentence when the variable TZ names a zone that is not understood: then another zone is used.
    static std::optional<std::string> timeZoneProblem();

    /// What the wall shows at `instant`. The part below the second is dropped.
    static WallTime components(Instant instant);
};

} // namespace lumeo
