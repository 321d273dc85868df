#pragma once

#include "samples/CameraExif.h"
#include "samples/Noise.h"

#include <cstdint>
#include <string>

namespace lumeo::samples {

/// The parts of a media file that readers of metadata see: its start and its end. A hole fills the space
/// between, so that a library with real file sizes fits a small disk.
struct SampleFile {
    std::string head;
    std::string tail;
    std::int64_t size = 0; ///< bytes; at least the size of head and tail
};

/// The number of bytes at the start of a photo that are not a hole.
inline constexpr std::size_t solidHeadSize = std::size_t{96} * 1024;

SampleFile jpegOf(const Shot& shot, Noise& noise, std::int64_t size);

/// A photo as messengers forward it, without any metadata.
SampleFile bareJpeg(int width, int height, Noise& noise, std::int64_t size);

/// A photo as phones write it: a grid of tiles, with Exif as a separate item.
SampleFile heicOf(const Shot& shot, Noise& noise, std::int64_t size);

/// A RAW file like a TIFF. Readers of metadata accept it as DNG, NEF and ARW.
SampleFile rawOf(const Shot& shot, Noise& noise, std::int64_t size);

/// QuickTime with its index after the frames. The date is in the header and in the metadata keys.
SampleFile movieOf(const Shot& shot, Noise& noise, std::int64_t size, int seconds);

} // namespace lumeo::samples
