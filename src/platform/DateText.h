#pragma once

#include "platform/Instant.h"

#include <optional>
#include <string>
#include <string_view>

namespace lumeo {

/// The date texts that files carry, read strictly: the whole text must match, and a field out of its
/// range (month 13, 30 February) is no date. The texts stand in a fixed form, whatever the user's
/// locale. Surrounding white space is not accepted: callers trim. Any thread may call.
struct DateText {
    /// "2021:03:14 15:30:45", wall-clock time. The zone is the user's at the first call in this
    /// process: photos of one scan are all read alike even when the zone changes meanwhile.
    static std::optional<Instant> parseExif(std::string_view text);

    /// ISO 8601 internet date and time with its offset; a fraction of a second may stand there or not:
    /// "2021-03-14T15:30:45.123+01:00", "2021-03-14T14:30:45Z".
    static std::optional<Instant> parseIso8601(std::string_view text);

    /// "2021-03-14T15:30:45+0100": an offset without colon (also accepted: "+01:00", "Z", "GMT").
    static std::optional<Instant> parseZoned(std::string_view text);

    /// "2021-03-14 15:30:45", read as UTC.
    static std::optional<Instant> parsePlainUtc(std::string_view text);

    /// "2021-03-14T15:30:45Z": the extended internet form in UTC, whole seconds.
    static std::string iso8601Utc(Instant instant);
};

} // namespace lumeo
