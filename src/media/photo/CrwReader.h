#pragma once

#include "media/FileWindow.h"
#include "media/photo/PhotoProperties.h"

#include <optional>

namespace lumeo {

struct CrwContents {
    PhotoProperties properties;
    std::optional<FileRange> embeddedJpeg; ///< the largest preview
};

/// Reads time, camera, size and preview of a CRW: heaps of values, each with a directory at its end, that
/// hold further heaps. However the directories lead about, only so many are visited.
CrwContents readCrw(FileWindow& file);

} // namespace lumeo
