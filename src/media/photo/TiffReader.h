#pragma once

#include "media/FileWindow.h"
#include "media/photo/PhotoProperties.h"

#include <optional>

namespace lumeo {

/// The metadata in a TIFF structure: a TIFF file, one of the RAW formats based on it, or the Exif block of
/// another format.
struct TiffContents {
    /// The pixel size of the main image. In an Exif block it tells nothing about the image around it.
    PhotoProperties properties;
    std::optional<FileRange> xmpPacket;
    std::optional<FileRange> photoshop;    ///< image resources
    std::optional<FileRange> embeddedJpeg; ///< where one RAW format keeps a second Exif block
};

/// What the first directory of a structure describes. In most formats the image's directory leads to the
/// other two.
enum class TiffRoot { image, exif, gps };

/// Reads the few wanted entries and what their values lead to. Maker notes, previews and pixels are never
/// touched. `structure` may go beyond the end of the file. Absent when it does not start with a TIFF header.
std::optional<TiffContents> readTiff(FileWindow& file, FileRange structure, TiffRoot root = TiffRoot::image);

} // namespace lumeo
