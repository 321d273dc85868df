#pragma once

#include "media/FileWindow.h"

#include <optional>

namespace lumeo {

/// Where a file that is a row of tagged chunks keeps what it says of itself.
struct ChunkContents {
    std::optional<FileRange> exif; ///< the TIFF structure
    std::optional<FileRange> xmpPacket;
};

ChunkContents readWebp(FileWindow& file);
ChunkContents readMrw(FileWindow& file);

/// Of a GIF, which has no Exif. Pixels are not read; what stands far behind the first of them is looked for
/// in the last 64 KiB.
ChunkContents readGif(FileWindow& file);

} // namespace lumeo
