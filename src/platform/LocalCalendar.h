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

/// The Gregorian calendar in the time zone that the user lives in at the moment of the call. Any
/// thread may call.
struct LocalCalendar {
    /// The instant at which the wall shows `time`. A day beyond its month's end carries over
    /// (30 February is 1 or 2 March). A time that a clock change skips or repeats gives one of the
    /// instants beside it, as the calendar library decides. Absent when no instant can hold it.
    static std::optional<Instant> compose(const WallTime& time);

    /// What the wall shows at `instant`; the second is whole, the part below it dropped.
    static WallTime components(Instant instant);
};

} // namespace lumeo
