#pragma once

#include "platform/FilePath.h"
#include "platform/Instant.h"

#include <cstdint>
#include <optional>
#include <stop_token>
#include <string>

namespace lumeo {

class FileSystem;
struct PhotoProperties;

/// The part of a photo's metadata that the program keeps.
struct PhotoMetadataResult {
    std::optional<Instant> dateTimeOriginal;
    std::optional<Instant> dateTimeDigitized;
    std::optional<Instant> tiffDateTime;
    std::optional<std::string> cameraMake; ///< trimmed; may be present and empty
    std::optional<std::string> cameraModel;
    std::optional<std::string> lensModel;
    std::optional<std::int64_t> pixelWidth;
    std::optional<std::int64_t> pixelHeight;
    bool hasGPS = false;                ///< a complete position was read
    std::optional<double> gpsLatitude;  ///< degrees, south negative
    std::optional<double> gpsLongitude; ///< degrees, west negative
    friend bool operator==(const PhotoMetadataResult&, const PhotoMetadataResult&) = default;
};

/// Reads the facts of one image file that dating and the catalogue need. Any thread may call.
struct PhotoMetadataExtractor {
    /// Never fails. An unreadable file gives the empty result. A read that is stopped gives what was read
    /// before.
    static PhotoMetadataResult extractMetadata(const FileSystem& fileSystem, const FilePath& path,
                                               const std::stop_token& stop = {});

    /// The same from properties that have been read already.
    static PhotoMetadataResult fromProperties(const PhotoProperties& properties);
};

} // namespace lumeo
