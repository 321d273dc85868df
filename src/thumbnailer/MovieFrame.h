#pragma once

#include "media/BoundedFile.h"

#include <QImage>
#include <QSize>

namespace lumeo {

/// Limits how much memory a decoder may take at once; see ThumbnailMaker::prepare().
void prepareMovieFrames();

/// The frame that a movie shows half a second after its start, upright and scaled to fit `pixels`. For a file
/// with a single picture (JPEG XL, JPEG 2000, PSD, OpenEXR and the like), that picture. Null when the movie
/// is shorter or cannot be decoded.
QImage movieFrame(BoundedFile& file, QSize pixels);

} // namespace lumeo
