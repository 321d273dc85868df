#pragma once

#include "media/BoundedFile.h"

#include <QByteArray>
#include <QImage>
#include <QSize>

namespace lumeo {

/// Loads Qt's readers; see ThumbnailMaker::prepare().
void prepareCommonImages();

/// A picture decoded by Qt's readers, turned upright by its own orientation, in sRGB, scaled to fit `pixels`.
/// Null unless the content is a format that is common in archives: JPEG, PNG, GIF, BMP, ICO, ICNS, WebP,
/// TIFF. Drawings (SVG) are left out, because their cost has no bound.
QImage commonImage(BoundedFile& file, QSize pixels);

/// The same for a JPEG in memory. `orientation` is Exif's number and is used when the JPEG has no orientation
/// of its own.
QImage embeddedJpeg(const QByteArray& bytes, QSize pixels, int orientation);

} // namespace lumeo
