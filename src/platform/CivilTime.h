#pragma once

#include "platform/Instant.h"
#include "platform/LocalCalendar.h"

#include <optional>

#include <unicode/timezone.h>

namespace lumeo {

/// The arithmetic between instants and what a wall shows, for any zone; what LocalCalendar and DateText
/// have in common. The Gregorian calendar is proleptic, as EXIF and ISO 8601 mean it: its rules reach
/// back before 1582, and a year before 1 counts on through 0. Any thread may call.
///
/// Fields of a wall time beyond their range carry over. Absent when no Instant can hold the result.
std::optional<Instant> instantInUtc(const WallTime& time);

/// The same in `zone`. A time that a clock change skips is read with the offset before the change
/// (02:30 becomes 03:30), one that it repeats with the offset after it (the later of the two).
std::optional<Instant> instantInZone(const WallTime& time, const icu::TimeZone& zone);

/// The inverse, the part below the second dropped towards the past.
WallTime wallTimeInUtc(Instant instant);
WallTime wallTimeInZone(Instant instant, const icu::TimeZone& zone);

/// True when a calendar and a clock can show it: no 31 February, no 24:00, no second 60. Of years from 1
/// to 9999.
bool isRealTime(const WallTime& time);

} // namespace lumeo
