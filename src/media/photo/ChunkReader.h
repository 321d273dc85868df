#pragma once

#include "media/FileWindow.h"
#include "media/photo/ImageHeader.h"

#include <optional>

namespace lumeo {

/// Where a file that is a row of tagged chunks keeps what it says of itself.
struct ChunkContents {
    std::optional<FileRange> exif; ///< the TIFF structure
    std::optional<FileRange> xmpPacket;
    std::optional<FileRange> textProfile; ///< a whole PNG chunk that holds an Exif block written as text
};

/// Walks the chunks of a PNG, WebP or MRW.
ChunkContents readChunks(FileWindow& file, ImageKind kind);

} // namespace lumeo
