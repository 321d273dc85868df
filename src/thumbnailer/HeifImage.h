#pragma once

#include "media/BoundedFile.h"

#include <QImage>
#include <QSize>

namespace lumeo {

/// Loads the decoders; see ThumbnailMaker::prepare().
void prepareHeifImages();

/// The embedded thumbnail of a HEIC or AVIF picture, else the picture itself, upright and fitted into
/// `pixels`. Null when the content is no such picture.
QImage heifImage(BoundedFile& file, QSize pixels);

} // namespace lumeo
