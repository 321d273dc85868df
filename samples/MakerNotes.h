#pragma once

#include "samples/CameraExif.h"

#include <string>

namespace lumeo::samples {

/// A maker note with the tags, types and sizes that cameras of this make write, and with random values.
/// `offset` is its place in the Exif structure and does not change its length.
std::string makerNote(Camera camera, const TiffMaker& tiff, std::size_t offset, Noise noise);

} // namespace lumeo::samples
