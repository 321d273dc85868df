#pragma once

#include "platform/FilePath.h"

#include <QImage>
#include <QSize>

namespace lumeo {

class FileSystem;

/// Makes a small picture of a photo, raw photo or movie. Any thread may call; it blocks. What one file
/// may cost is bounded in bytes, time and pixels, whatever it holds; nothing is written.
struct ThumbnailMaker {
    /// An upright picture fitted into `pixels`, never enlarged; null when none can be made.
    static QImage make(const FileSystem& fileSystem, const FilePath& path, QSize pixels);
};

} // namespace lumeo
