#pragma once

#include "media/BoundedFile.h"

#include <QImage>
#include <QSize>

namespace lumeo {

/// Bounds what a decoder may take at once; see ThumbnailMaker::prepare().
void prepareMovieFrames();

/// The frame that a movie shows half a second from its start, upright and fitted into `pixels`; of what
/// holds a single picture (JPEG XL, JPEG 2000, PSD, OpenEXR and the like), that one. Null when the movie
/// is shorter, or cannot be decoded.
QImage movieFrame(BoundedFile& file, QSize pixels);

} // namespace lumeo
