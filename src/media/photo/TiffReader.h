#pragma once

#include "media/FileWindow.h"
#include "media/photo/PhotoProperties.h"

#include <optional>

namespace lumeo {

/// What a TIFF structure tells: a TIFF file, one of the RAW formats built on it, or the Exif block of
/// another format.
struct TiffContents {
    /// The pixel size is the main image's; in an Exif block it says nothing about the image around it.
    PhotoProperties properties;
    std::optional<FileRange> xmpPacket;
    std::optional<FileRange> photoshop;    ///< image resources
    std::optional<FileRange> embeddedJpeg; ///< where one RAW format keeps a second Exif block
};

/// What the first directory of a structure describes; most formats hang the other two below the image's.
enum class TiffRoot { image, exif, gps };

/// Reads the few entries that are asked for and what their values lead to; maker notes, previews and
/// pixels are never touched. `structure` may reach past the end of the file. Absent when no TIFF header
/// stands there.
std::optional<TiffContents> readTiff(FileWindow& file, FileRange structure, TiffRoot root = TiffRoot::image);

} // namespace lumeo
