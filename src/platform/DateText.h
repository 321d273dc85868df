#pragma once

#include "platform/Instant.h"
#include "platform/LocalCalendar.h"

#include <optional>
#include <string>
#include <string_view>

namespace lumeo {

/// The date texts that files carry: the whole text must match, digits are ASCII, and a field out of its range
/// (year 0, month 13, 30 February, hour 24, second 60) is no date. Surrounding white space is not accepted:
/// callers trim. Any thread may call.
///
/// Offsets are "Z", "+01:00" or "+0100", up to 23:59 either way. But for photos, every field has exactly the
/// digits shown.
struct DateText {
    /// "2021:03:14 15:30:45", and what cameras and programs make of it: dashes, points or slashes between the
    /// parts of the day, a T before the time, blanks for leading zeros or none of either
    /// ("2004: 1: 2  9: 5: 1"), no seconds, a fraction of a second, an offset. A day alone is its noon.
    ///
    /// Without an offset it is wall-clock time (see photoClock()).
    static std::optional<Instant> parsePhoto(std::string_view text);

    /// What a camera's clock shows, which must be a real time. The zone is the user's at the first call in
    /// this process: photos of one scan are all read alike even when the zone changes meanwhile. A time that
    /// a clock change skips is a date all the same (see LocalCalendar): cameras are set late.
    static std::optional<Instant> photoClock(const WallTime& time);

    /// ISO 8601 internet date and time with its offset; a fraction of a second of up to nine digits
    /// may stand there or not, what is below the microsecond is dropped:
    /// "2021-03-14T15:30:45.123+01:00", "2021-03-14T14:30:45Z".
    static std::optional<Instant> parseIso8601(std::string_view text);

    /// "2021-03-14T15:30:45+0100": whole seconds and an offset, for which "GMT" may stand as well.
    static std::optional<Instant> parseZoned(std::string_view text);

    /// "2021-03-14 15:30:45", read as UTC.
    static std::optional<Instant> parsePlainUtc(std::string_view text);

    /// "2021-03-14T15:30:45Z": the extended internet form in UTC, whole seconds.
    static std::string iso8601Utc(Instant instant);
};

} // namespace lumeo
