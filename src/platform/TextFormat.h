#pragma once

#include "platform/Instant.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace lumeo {

enum class DateStyle { none, shortStyle, mediumStyle };

/// Numbers and dates as the user's system writes them: its time zone and its locale (LC_ALL, else
/// LC_TIME for dates and LC_NUMERIC for numbers, else LANG; American English when that names no
/// language), not the language chosen inside the program. Any thread may call; formatters are made once
/// per thread and again only when the settings have changed.
struct TextFormat {
    /// The instant in the given styles; `none` leaves that half out. Both `none` gives no text.
    static std::string date(Instant instant, DateStyle dateStyle, DateStyle timeStyle);

    /// The same in the words and order of another locale ("tr", "zh-Hans"), the zone staying the user's.
    static std::string date(Instant instant, DateStyle dateStyle, DateStyle timeStyle,
                            std::string_view localeTag);

    /// A span of time in whole hours and minutes from an hour on, else in whole minutes and seconds,
    /// abbreviated; a unit of which there are none is left out, and nothing at all is "0s".
    static std::string duration(double seconds);

    /// A file's size in decimal units: whole bytes below 1 KB, whole KB below 1 MB, at most one decimal
    /// for MB and two from GB on, halves rounded up. 0 is "Zero KB" in English, "0 KB" elsewhere.
    static std::string byteCount(std::int64_t bytes);

    /// A whole number with the locale's grouping.
    static std::string number(std::int64_t value);

    /// A number of things in English: "1 file", "2,000 files".
    static std::string count(std::int64_t value, std::string_view singular);
};

} // namespace lumeo
