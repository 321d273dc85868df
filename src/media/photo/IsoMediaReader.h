#pragma once

#include "media/FileWindow.h"
#include "media/photo/ImageHeader.h"
#include "media/photo/TiffReader.h"

#include <optional>
#include <vector>

namespace lumeo {

/// Where an image in an ISO media file (HEIC, HEIF, AVIF, CR3) keeps its metadata.
struct IsoMediaContents {
    struct TiffPart {
        FileRange range;
        TiffRoot root = TiffRoot::image;
    };
    std::optional<PixelSize> size; ///< of the primary image as coded, before any rotation
    std::vector<TiffPart> exif;    ///< one structure, or one for each directory
    std::optional<FileRange> xmpPacket;
};

/// Absent when the file declares no brand of image. Movies consist of the same boxes.
std::optional<IsoMediaContents> readIsoMedia(FileWindow& file);

/// The same for a JPEG 2000 file, which also consists of boxes.
IsoMediaContents readJp2(FileWindow& file);

} // namespace lumeo
