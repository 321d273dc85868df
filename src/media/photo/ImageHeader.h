#pragma once

#include "media/FileWindow.h"

#include <cstdint>

namespace lumeo {

/// What the first bytes of an image file show it to be. Names and extensions are not asked.
enum class ImageKind : std::uint8_t {
    unknown,
    jpeg,
    tiff, ///< and the RAW formats built on it
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

/// The pixel size that the header of a PNG, WebP, JPEG 2000 codestream, PSD, GIF, BMP or ICO tells; of an
/// ICO its first picture's. Absent for every other kind and where the header makes no sense.
std::optional<PixelSize> headerPixelSize(FileWindow& file, ImageKind kind);

} // namespace lumeo
