#pragma once

#include "platform/Instant.h"

#include <optional>
#include <string_view>

namespace lumeo {

/// Recovers a capture date from a file's name. It knows the forms that cameras, phones, screen captures and
/// messaging apps write. Any thread may call.
struct FilenameDateParser {
    /// The first plausible date in `fileName` (last path component, extension included), in the user's time
    /// zone. The time is noon when the name has only the day. A day after the end of its month carries over.
    /// Bytes that are not UTF-8 count as characters that are not digits.
    static std::optional<Instant> parseDate(std::string_view fileName);
};

} // namespace lumeo
