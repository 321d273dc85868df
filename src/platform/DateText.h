#pragma once

#include "platform/Instant.h"

#include <optional>
#include <string>
#include <string_view>

namespace lumeo {

/// The date texts that files carry, read strictly: the whole text must match, every field has exactly
/// the ASCII digits shown, and a field out of its range (year 0, month 13, 30 February, hour 24, second
/// 60) is no date. Surrounding white space is not accepted: callers trim. Any thread may call.
///
/// Offsets are "Z", "+01:00" or "+0100", up to 23:59 either way.
struct DateText {
    /// "2021:03:14 15:30:45", wall-clock time. The zone is the user's at the first call in this
    /// process: photos of one scan are all read alike even when the zone changes meanwhile. A time
    /// that a clock change skips is a date all the same (see LocalCalendar): cameras are set late.
    static std::optional<Instant> parseExif(std::string_view text);

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
