#pragma once

#include "platform/Instant.h"
#include "platform/LocalCalendar.h"

#include <optional>

#include <unicode/timezone.h>

namespace lumeo {

/// Converts between instants and wall times, for any zone. LocalCalendar and DateText share it. The Gregorian
/// calendar is proleptic, as in EXIF and ISO 8601: its rules also apply before 1582, and the years before 1
/// count on through 0. Any thread may call.
///
/// Fields of a wall time beyond their range carry over. Absent when no Instant can hold the result.
std::optional<Instant> instantInUtc(const WallTime& time);

/// The same in `zone`. A time that a clock change skips is read with the offset before the change, so 02:30
/// becomes 03:30. A time that occurs twice is read with the offset after the change, which gives the later of
/// the two.
std::optional<Instant> instantInZone(const WallTime& time, const icu::TimeZone& zone);

/// The inverse. The part below the second is dropped towards the past.
WallTime wallTimeInUtc(Instant instant);
WallTime wallTimeInZone(Instant instant, const icu::TimeZone& zone);

/// True when a calendar and a clock can show the time: no 31 February, no 24:00, no second 60. The year must
/// be from 1 to 9999.
bool isRealTime(const WallTime& time);

} // namespace lumeo
