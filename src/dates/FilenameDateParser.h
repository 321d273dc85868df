#pragma once

#include "platform/Instant.h"

#include <optional>
#include <string_view>

namespace lumeo {

/// Recovers a capture date from a file's name, as cameras, phones, screen captures and messaging apps
/// write it. Any thread may call.
struct FilenameDateParser {
    /// The first plausible date in `fileName` (last path component, extension included), read in the
    /// user's time zone; noon when the name tells the day alone. A day beyond its month's end carries
    /// over. Bytes that are not UTF-8 count as characters that are no digits.
    static std::optional<Instant> parseDate(std::string_view fileName);
};

} // namespace lumeo
