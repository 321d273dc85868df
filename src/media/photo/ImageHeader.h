#pragma once

#include "media/FileWindow.h"

#include <cstdint>

namespace lumeo {

/// The kind of image that a file's first bytes show. Names and extensions do not matter.
enum class ImageKind : std::uint8_t {
    unknown,
    jpeg,
    tiff, ///< and the RAW formats based on it
    raf,
    x3f,
    crw,
    mrw,
    png,
    webp,
    isoMedia, ///< HEIC, HEIF, AVIF, CR3
    jp2,
    jpegCodestream,
    jxl, ///< with boxes around its pixels
    psd,
    gif,
    bmp,
    ico,
};

ImageKind imageKind(FileWindow& file);

struct PixelSize {
    std::int64_t width = 0;
    std::int64_t height = 0;
    friend bool operator==(const PixelSize&, const PixelSize&) = default;
};

/// The pixel size in the header of a PNG, WebP, JPEG 2000 codestream, PSD, GIF, BMP or ICO. For an ICO it is
/// the size of the first picture. Absent for every other kind and when the header makes no sense.
std::optional<PixelSize> headerPixelSize(FileWindow& file, ImageKind kind);

} // namespace lumeo
