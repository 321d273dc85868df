#pragma once

#include "samples/Noise.h"
#include "samples/TinyPhotos.h"

#include <cstdint>
#include <optional>
#include <string>

namespace lumeo::samples {

/// Cameras that differ in what they write: the byte order, the form and size of the maker note, the
/// thumbnail, the position.
enum class Camera { canon, nikon, sony, iphone, galaxy };

/// One photo or film that a camera takes.
struct Shot {
    Camera camera = Camera::canon;
    std::int64_t second = 0; ///< since 2001-01-01, in the camera's own time
    bool hasPosition = false;
    int width = 6000; ///< pixels
    int height = 4000;
};

/// "2021:03:14 15:30:45", or another form that `format` describes for std::put_time().
std::string cameraTime(const Shot& shot, const char* format = "%Y:%m:%d %H:%M:%S");

std::string makeOf(Camera camera);
std::string modelOf(Camera camera);

/// The Exif structure as such a camera writes it: camera, exposure, maker note, position, thumbnail.
/// `mainEntries` are added to the first directory, which describes the pixels of a RAW file.
std::string cameraExif(const Shot& shot, Noise& noise, std::vector<TiffMaker::Entry> mainEntries = {});

} // namespace lumeo::samples
