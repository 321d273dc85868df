#pragma once

#include "platform/Instant.h"
#include "platform/LocalCalendar.h"

#include <optional>
#include <string>
#include <string_view>

namespace lumeo {

/// Parses the date texts in files. The whole text must match, and digits are ASCII. A text with a field out
/// of its range (year 0, month 13, 30 February, hour 24, second 60) is not a date. White space around the
/// text is not accepted, so callers must trim it. Any thread may call.
///
/// Offsets are "Z", "+01:00" or "+0100", up to 23:59 in both directions. Every field has exactly the digits
/// shown, except in the dates of photos.
struct DateText {
    /// "2021:03:14 15:30:45", and the variants of cameras and programs: dashes, points or slashes between the
    /// parts of the day, a T before the time, blanks in place of leading zeros or neither ("2004: 1: 2  9: 5:
    /// 1"), no seconds, a fraction of a second, an offset. A date without a time means noon.
    ///
    /// Without an offset it is wall-clock time (see photoClock()).
    static std::optional<Instant> parsePhoto(std::string_view text);

    /// The time on a camera's clock, which must be a real time. The zone is the user's at the first call in
    /// this process, so that all photos of one scan are read alike, even when the zone changes. A time that a
    /// clock change skips is valid (see LocalCalendar), because people set their cameras late.
    static std::optional<Instant> photoClock(const WallTime& time);

    /// ISO 8601 internet date and time with its offset: "2021-03-14T15:30:45.123+01:00",
    /// "2021-03-14T14:30:45Z". A fraction of a second of up to nine digits is allowed. Digits below the
    /// microsecond are dropped.
    static std::optional<Instant> parseIso8601(std::string_view text);

    /// "2021-03-14T15:30:45+0100": whole seconds and an offset. The offset may also be "GMT".
    static std::optional<Instant> parseZoned(std::string_view text);

    /// "2021-03-14 15:30:45", read as UTC.
    static std::optional<Instant> parsePlainUtc(std::string_view text);

    /// "2021-03-14T15:30:45Z": the extended internet form in UTC, whole seconds.
    static std::string iso8601Utc(Instant instant);
};

} // namespace lumeo
