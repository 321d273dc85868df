#pragma once

#include "media/FileWindow.h"

#include <cstdint>
#include <optional>

namespace lumeo {

/// Where a JPEG keeps its metadata.
struct JpegContents {
    std::optional<std::int64_t> pixelWidth;
    std::optional<std::int64_t> pixelHeight;
    std::optional<FileRange> exif; ///< the TIFF structure
    std::optional<FileRange> xmpPacket;
    std::optional<FileRange> photoshop; ///< image resources
};

/// Walks the segments before the pixels of the JPEG that starts at `offset`. Absent when none starts there.
std::optional<JpegContents> readJpeg(FileWindow& file, std::uint64_t offset);

} // namespace lumeo
