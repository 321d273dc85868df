#pragma once

#include "platform/Instant.h"

#include <optional>

namespace lumeo {

/// What a wall clock and a calendar on the wall show. Months and days count from 1.
struct WallTime {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    friend bool operator==(const WallTime&, const WallTime&) = default;
};

/// The Gregorian calendar, proleptic, in the user's time zone: the one the process found at its start,
/// or the one that was made its default since (icu::TimeZone::adoptDefault), looked up at every call.
/// Any thread may call.
struct LocalCalendar {
    /// The instant at which the wall shows `time`. Fields beyond their range carry over (30 February is
    /// 1 or 2 March). A time that a clock change skips is read as before the change (02:30 becomes
    /// 03:30), one that it repeats as after it. Absent when no instant can hold it.
    static std::optional<Instant> compose(const WallTime& time);

    /// What the wall shows at `instant`; the second is whole, the part below it dropped.
    static WallTime components(Instant instant);
};

} // namespace lumeo
