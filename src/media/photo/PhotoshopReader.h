#pragma once

#include "media/FileWindow.h"
#include "platform/Instant.h"

#include <optional>

namespace lumeo {

/// What Photoshop's image resources tell of an image.
struct PhotoshopContents {
    std::optional<FileRange> exif; ///< the TIFF structure
    std::optional<FileRange> xmpPacket;
    std::optional<Instant> dateCreated; ///< of what the picture shows, as press agencies write it
};

/// Walks the resources in a stretch of the file; only so many are visited.
PhotoshopContents readPhotoshopResources(FileWindow& file, FileRange resources);

/// The same of a PSD or PSB file.
PhotoshopContents readPsd(FileWindow& file);

} // namespace lumeo
