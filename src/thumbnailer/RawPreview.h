#pragma once

#include "media/BoundedFile.h"

#include <QImage>
#include <QSize>

namespace lumeo {

/// Sets the library up; see ThumbnailMaker::prepare().
void prepareRawPreviews();

/// The smallest preview in a camera's raw file that fills `pixels`, else its largest, upright and scaled to
/// fit. Null when there is none.
QImage rawPreview(BoundedFile& file, QSize pixels);

} // namespace lumeo
