#pragma once

#include "platform/Instant.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace lumeo {

/// One piece of a movie's metadata. Its value is a date or a text.
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

/// What the header of a movie's container tells.
struct MovieProperties {
    /// All items in the order of the container. The container's own creation time has the key "creationDate";
    /// it is left out when it is not set (0, 1904-01-01 or 1970-01-01).
    std::vector<MovieMetadataItem> metadata;
    /// The items with the creation date, best first: QuickTime metadata, user data, container header.
    std::vector<MovieMetadataItem> commonCreationDates;
    std::optional<double> durationSeconds;     ///< absent when the container does not tell
    std::optional<MovieVideoTrack> videoTrack; ///< the first one; absent when there is none
    friend bool operator==(const MovieProperties&, const MovieProperties&) = default;
};

} // namespace lumeo
