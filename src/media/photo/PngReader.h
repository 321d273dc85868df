#pragma once

#include "media/FileWindow.h"

#include <optional>
#include <string>

namespace lumeo {

/// What a PNG carries of metadata.
struct PngContents {
    std::optional<FileRange> exif;          ///< the TIFF structure, in a chunk of its own
    std::optional<std::string> exifProfile; ///< a TIFF structure that stood there as text
    std::optional<std::string> xmpPacket;
};

/// Walks the heads of the chunks; pixels are not read. Of a long row of them only the first are visited: what
/// stands behind is looked for in the last 256 KiB of the file. Texts are inflated to 4 MiB at most.
PngContents readPng(FileWindow& file);

} // namespace lumeo
