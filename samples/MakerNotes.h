#pragma once

#include "samples/CameraExif.h"

#include <string>

namespace lumeo::samples {

/// A maker note with the tags, types and sizes that cameras of this make write, its values chance.
/// `offset` is where it will stand in the Exif structure; it does not change the note's length.
std::string makerNote(Camera camera, const TiffMaker& tiff, std::size_t offset, Noise noise);

} // namespace lumeo::samples
