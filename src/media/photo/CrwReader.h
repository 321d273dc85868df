#pragma once

#include "media/FileWindow.h"
#include "media/photo/PhotoProperties.h"

#include <optional>

namespace lumeo {

struct CrwContents {
    PhotoProperties properties;
    std::optional<FileRange> embeddedJpeg; ///< the largest preview
};

/// Reads time, camera, size and preview of a CRW file. It consists of heaps of values. Each heap has a
/// directory at its end and may hold more heaps. The number of visited directories is limited, wherever they
/// lead.
CrwContents readCrw(FileWindow& file);

} // namespace lumeo
