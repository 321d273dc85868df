#pragma once

#include "platform/Instant.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace lumeo {

enum class DateStyle { none, shortStyle, mediumStyle };

/// Numbers and dates as the user's system writes them, in its time zone and its locale. The locale is LC_ALL,
/// else LC_TIME for dates and LC_NUMERIC for numbers, else LANG; it is American English when that names no
/// language. The language that is chosen inside the program plays no role. Any thread may call. Each thread
/// makes its formatters once and again only when the settings have changed.
struct TextFormat {
    /// The instant in the given styles. `none` leaves that half out; `none` for both gives no text.
    static std::string date(Instant instant, DateStyle dateStyle, DateStyle timeStyle);

    /// The same in the words and order of another locale ("tr", "zh-Hans"). The zone is still the user's.
    static std::string date(Instant instant, DateStyle dateStyle, DateStyle timeStyle,
                            std::string_view localeTag);

    /// A span of time, abbreviated. From one hour on it is in whole hours and minutes, below that in whole
    /// minutes and seconds. A unit that is zero is left out. No time at all is "0s".
    static std::string duration(double seconds);

    /// A file's size in decimal units: whole bytes below 1 KB, whole KB below 1 MB, at most one decimal for
    /// MB and two from GB on. Halves are rounded up. 0 is "Zero KB" in English and "0 KB" in other languages.
    static std::string byteCount(std::int64_t bytes);

    /// A whole number with the locale's grouping.
    static std::string number(std::int64_t value);

    /// A number of things in English: "1 file", "2,000 files".
    static std::string count(std::int64_t value, std::string_view singular);
};

} // namespace lumeo
