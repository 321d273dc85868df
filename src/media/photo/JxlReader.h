#pragma once

#include "media/FileWindow.h"

#include <optional>
#include <string>

namespace lumeo {

/// The metadata in the boxes of a JPEG XL file.
struct JxlContents {
    std::optional<std::string> exif; ///< a TIFF structure
    std::optional<std::string> xmpPacket;
};

/// Reads a JPEG XL file with boxes. Boxes that are compressed with Brotli, as most encoders leave them, are
/// decompressed.
JxlContents readJxl(FileWindow& file);

} // namespace lumeo
