#pragma once

#include "media/FileWindow.h"

#include <optional>
#include <string>

namespace lumeo {

/// The metadata in a PNG.
struct PngContents {
    std::optional<FileRange> exif;          ///< the TIFF structure, in a chunk of its own
    std::optional<std::string> exifProfile; ///< a TIFF structure that was stored as text
    std::optional<std::string> xmpPacket;
};

/// Walks the heads of the chunks without reading pixels. Of a long series of chunks only the first are
/// visited. Later metadata is looked for in the last 256 KiB of the file. At most 4 MiB of text are inflated.
PngContents readPng(FileWindow& file);

} // namespace lumeo
