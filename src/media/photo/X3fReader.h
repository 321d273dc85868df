#pragma once

#include "media/FileWindow.h"
#include "media/photo/PhotoProperties.h"

#include <optional>

namespace lumeo {

struct X3fContents {
    PhotoProperties properties;
    std::optional<FileRange> embeddedJpeg; ///< the preview, which has the Exif block of newer cameras
};

/// Reads the size in the header, and time and camera. Older cameras store these as pairs of UTF-16 texts.
X3fContents readX3f(FileWindow& file);

} // namespace lumeo
