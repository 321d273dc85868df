#pragma once

#include <QImage>
#include <QSize>

namespace lumeo {

class ReadableFile;

/// Makes a small picture of a photo, raw photo or movie. It blocks. What one file may cost is bounded in
/// bytes, time and pixels, whatever it holds; nothing is written.
struct ThumbnailMaker {
    /// Loads what the decoders would load when they are first needed: within a cage it is too late.
    static void prepare();

    /// An upright picture fitted into `pixels`, never enlarged; null when none can be made. Of a file whose
    /// name says that it is a camera's raw one, the preview that the camera made.
    static QImage make(ReadableFile& file, bool isRaw, QSize pixels);
};

} // namespace lumeo
