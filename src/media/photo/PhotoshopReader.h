#pragma once

#include "media/FileWindow.h"
#include "platform/Instant.h"

#include <optional>

namespace lumeo {

/// What Photoshop's image resources tell about an image.
struct PhotoshopContents {
    std::optional<FileRange> exif; ///< the TIFF structure
    std::optional<FileRange> xmpPacket;
    std::optional<Instant> dateCreated; ///< of the scene in the picture, as press agencies write it
};

/// Walks the resources in a range of the file. The number of visited resources is limited.
PhotoshopContents readPhotoshopResources(FileWindow& file, FileRange resources);

/// The same for a PSD or PSB file.
PhotoshopContents readPsd(FileWindow& file);

} // namespace lumeo
