#pragma once

#include "model/MediaItem.h"

#include <optional>

namespace lumeo {

/// Decides from a file's name alone whether it is media the program handles. Never opens the file.
/// Any thread may call.
struct MediaTypeDetector {
    struct Detection {
        MediaType mediaType = MediaType::other; ///< photo, video or rawPhoto
        SharedText utType;                      ///< uniform type identifier, e.g. "public.jpeg"
        friend bool operator==(const Detection&, const Detection&) = default;
    };

    /// Absent when the file is not supported.
    static std::optional<Detection> detectType(const FilePath& path);
};

} // namespace lumeo
