#pragma once

#include "platform/FilePath.h"
#include "platform/Instant.h"

#include <cstdint>
#include <optional>
#include <stop_token>

namespace lumeo {

class FileSystem;
class MediaHelper;
struct MovieProperties;

/// The part of a movie's metadata that the program keeps.
struct VideoMetadataResult {
    std::optional<Instant> creationDate;    ///< recording date
    std::optional<double> durationSeconds;  ///< above 0 when present
    std::optional<std::int64_t> pixelWidth; ///< as displayed, after rotation
    std::optional<std::int64_t> pixelHeight;
    friend bool operator==(const VideoMetadataResult&, const VideoMetadataResult&) = default;
};

/// Reads the recording date, duration and displayed size of one movie file. Any thread may call.
struct VideoMetadataExtractor {
    /// Never fails. An unreadable file gives the empty result. `helper` is asked about containers that our
    /// own readers do not know.
    static VideoMetadataResult extractMetadata(const FileSystem& fileSystem, const FilePath& path,
                                               MediaHelper& helper, const std::stop_token& stop = {});

    /// The same from properties that have been read already.
    static VideoMetadataResult fromProperties(const MovieProperties& properties);
};

} // namespace lumeo
