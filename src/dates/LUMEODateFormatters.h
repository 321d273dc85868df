#pragma once

#include "platform/Instant.h"

#include <optional>
#include <string>

namespace lumeo {

/// Dates as texts for people, in the same form wherever they are shown. They follow the user's system locale
/// and time zone, not the language that is chosen inside the program. Any thread may call.
struct LUMEODateFormatters {
    static std::string formattedFully(std::optional<Instant> date);  ///< medium date and time, or "Unknown"
    static std::string formattedMedium(std::optional<Instant> date); ///< medium date, or "Unknown"
    static std::string formattedShort(std::optional<Instant> date);  ///< short date and time, or "—"
};

} // namespace lumeo
