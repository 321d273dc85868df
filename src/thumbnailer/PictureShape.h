#pragma once

#include <QImage>
#include <QSize>

#include <cstdint>

namespace lumeo {

/// More is not decoded, however small the result: a gigabyte of memory is not spent on one preview.
inline constexpr std::int64_t mostPixels = 200'000'000;

/// The size of a picture in a space, shape kept, never larger than it is.
QSize fitted(QSize picture, QSize space);

/// The picture turned upright, `orientation` being Exif's number from 1 to 8; any other leaves it.
QImage upright(const QImage& picture, int orientation);

} // namespace lumeo
