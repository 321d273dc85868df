#pragma once

#include "platform/Instant.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace lumeo {

/// One piece of a movie's metadata, with its value as a date or as text.
struct MovieMetadataItem {
    std::string key; ///< "com.apple.quicktime.creationdate", "©day", "creationDate", …
    std::optional<Instant> dateValue;
    std::optional<std::string> stringValue;
    friend bool operator==(const MovieMetadataItem&, const MovieMetadataItem&) = default;
};

struct MovieVideoTrack {
    double naturalWidth = 0; ///< pixels, before the transform
    double naturalHeight = 0;
    std::array<double, 6> transform{1, 0, 0, 1, 0, 0}; ///< a, b, c, d, tx, ty of the display matrix
    friend bool operator==(const MovieVideoTrack&, const MovieVideoTrack&) = default;
};

/// What a movie's container says of it, from its header.
struct MovieProperties {
    /// All items in container order; the container's own creation time stands among them under
    /// "creationDate", unless it is unset (0, 1904-01-01 or 1970-01-01).
    std::vector<MovieMetadataItem> metadata;
    /// Those that tell the creation date, best first: QuickTime metadata, user data, container header.
    std::vector<MovieMetadataItem> commonCreationDates;
    std::optional<double> durationSeconds;     ///< absent when the container does not tell
    std::optional<MovieVideoTrack> videoTrack; ///< the first one; absent without any
    friend bool operator==(const MovieProperties&, const MovieProperties&) = default;
};

} // namespace lumeo
