#pragma once

#include <QImage>
#include <QSize>

#include <cstdint>

namespace lumeo {

/// A larger picture is not decoded, however small the result would be: one preview must not take a gigabyte
/// of memory.
inline constexpr std::int64_t mostPixels = 200'000'000;

/// The size of a picture that is scaled to fit a space. The shape is kept, and the picture is never enlarged.
QSize fitted(QSize picture, QSize space);

/// The picture turned upright. `orientation` is Exif's number from 1 to 8; any other number changes nothing.
QImage upright(const QImage& picture, int orientation);

} // namespace lumeo
