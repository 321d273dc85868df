#pragma once

#include "platform/PhotoReader.h"
#include "platform/photo/FileWindow.h"

namespace lumeo {

/// Reads the properties that X3F files of the older cameras keep as pairs of UTF-16 texts (time, camera)
/// and the size in the header. The time is told as an Exif text: the camera's wall clock.
PhotoProperties readX3f(FileWindow& file);

} // namespace lumeo
