#pragma once

#include "media/BoundedFile.h"

#include <QImage>
#include <QSize>

namespace lumeo {

/// Loads the decoders; see ThumbnailMaker::prepare().
void prepareHeifImages();

/// The embedded thumbnail of a HEIC or AVIF picture, else the picture itself, upright and scaled to fit
/// `pixels`. Null for other content.
QImage heifImage(BoundedFile& file, QSize pixels);

} // namespace lumeo
