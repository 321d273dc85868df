#pragma once

#include "samples/CameraExif.h"
#include "samples/Noise.h"

#include <cstdint>
#include <string>

namespace lumeo::samples {

/// A media file as far as readers of metadata look: its beginning and its end. What lies between is a
/// hole, so that a library with files of true sizes fits a small disk.
struct SampleFile {
    std::string head;
    std::string tail;
    std::int64_t size = 0; ///< bytes; at least those of head and tail
};

/// The number of bytes at the beginning of a photo that are really there.
inline constexpr std::size_t solidHeadSize = std::size_t{96} * 1024;

SampleFile jpegOf(const Shot& shot, Noise& noise, std::int64_t size);

/// As messengers send photos on: no metadata at all.
SampleFile bareJpeg(int width, int height, Noise& noise, std::int64_t size);

/// As phones write it: a grid of tiles, Exif as an item of its own.
SampleFile heicOf(const Shot& shot, Noise& noise, std::int64_t size);

/// A TIFF-like RAW file: good as DNG, NEF and ARW, for readers of metadata.
SampleFile rawOf(const Shot& shot, Noise& noise, std::int64_t size);

/// QuickTime with its index behind the frames; the date in the header and in the metadata keys.
SampleFile movieOf(const Shot& shot, Noise& noise, std::int64_t size, int seconds);

} // namespace lumeo::samples
