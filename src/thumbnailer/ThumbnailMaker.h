#pragma once

#include <QImage>
#include <QSize>

namespace lumeo {

class ReadableFile;

/// Makes a small picture of a photo, raw photo or movie. Blocks. The cost of one file is bounded in bytes,
/// time and pixels, whatever the file holds. Nothing is written.
struct ThumbnailMaker {
    /// Loads what the decoders would otherwise load on first use, which is too late inside the cage.
    static void prepare();

    /// An upright picture that fits `pixels`, never enlarged. Null when none can be made. With `isRaw`, which
    /// is decided by the file's name, the result is the preview that the camera made.
    static QImage make(ReadableFile& file, bool isRaw, QSize pixels);
};

} // namespace lumeo
