#pragma once

#include "platform/Instant.h"

#include <cstdint>
#include <string>

namespace lumeo {

enum class DateStyle { none, shortStyle, mediumStyle };

/// Numbers and dates as the user's system writes them (its locale and time zone, not the language
/// chosen inside the program). Any thread may call; formatters are made once per thread.
struct TextFormat {
    /// The instant in the given styles; `none` leaves that half out.
    static std::string date(Instant instant, DateStyle dateStyle, DateStyle timeStyle);

    /// A file's size in decimal units: 0 is "Zero KB", below 1 MB whole kB, one decimal for MB, up to
    /// two from GB on.
    static std::string byteCount(std::int64_t bytes);

    /// A whole number with the locale's grouping.
    static std::string number(std::int64_t value);
};

} // namespace lumeo
