#pragma once

#include "media/FileWindow.h"

#include <optional>

namespace lumeo {

/// Where a file of tagged chunks keeps its metadata.
struct ChunkContents {
    std::optional<FileRange> exif; ///< the TIFF structure
    std::optional<FileRange> xmpPacket;
};

ChunkContents readWebp(FileWindow& file);
ChunkContents readMrw(FileWindow& file);

/// The same for a GIF, which has no Exif. Pixels are not read. Metadata far behind the first pixels is looked
/// for in the last 64 KiB.
ChunkContents readGif(FileWindow& file);

} // namespace lumeo
