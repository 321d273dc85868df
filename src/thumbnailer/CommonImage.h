#pragma once

#include "media/BoundedFile.h"

#include <QByteArray>
#include <QImage>
#include <QSize>

namespace lumeo {

/// Loads Qt's readers; see ThumbnailMaker::prepare().
void prepareCommonImages();

/// A picture decoded by Qt's readers, upright by its own orientation, in sRGB, fitted into `pixels`.
/// Null when the content is none of the formats that are common in archives: JPEG, PNG, GIF, BMP, ICO,
/// ICNS, WebP, TIFF. Drawings (SVG) are left out, since what they may cost has no bound.
QImage commonImage(BoundedFile& file, QSize pixels);

/// The same of a JPEG in memory; one that carries no orientation of its own takes `orientation`, Exif's
/// number.
QImage embeddedJpeg(const QByteArray& bytes, QSize pixels, int orientation);

} // namespace lumeo
