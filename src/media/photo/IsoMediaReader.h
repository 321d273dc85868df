#pragma once

#include "media/FileWindow.h"
#include "media/photo/ImageHeader.h"
#include "media/photo/TiffReader.h"

#include <optional>
#include <vector>

namespace lumeo {

/// Where an image in an ISO media file (HEIC, HEIF, AVIF, CR3) keeps what it says of itself.
struct IsoMediaContents {
    struct TiffPart {
        FileRange range;
        TiffRoot root = TiffRoot::image;
    };
    std::optional<PixelSize> size; ///< the primary image's as coded, before any rotation
    std::vector<TiffPart> exif;    ///< one structure, or one for each directory
    std::optional<FileRange> xmpPacket;
};

/// Absent when the file declares no brand of image: movies are built of the same boxes.
std::optional<IsoMediaContents> readIsoMedia(FileWindow& file);

/// The same of a JPEG 2000 file, which is made of boxes too.
IsoMediaContents readJp2(FileWindow& file);

/// The same of a JPEG XL file with boxes, without the size.
IsoMediaContents readJxl(FileWindow& file);

} // namespace lumeo
