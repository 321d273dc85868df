#pragma once

#include <QColor>
#include <QImage>
#include <QList>

#include <array>
#include <string>

namespace lumeo {

/// A picture with a red left and a blue right half.
QImage redAndBlue(QSize size);

std::string encoded(const QImage& picture, const char* format);

/// The JPEG with an Exif segment that holds only an orientation.
std::string withOrientation(const std::string& jpeg, int orientation);

/// The smallest raw file with a preview: a TIFF with an orientation that embeds the JPEG.
std::string rawAround(const std::string& jpeg, int orientation);

/// A QuickTime movie of ten frames a second, one frame for each colour, all of `size`. `turn` is a, b, c, d
/// of the display matrix.
std::string movieOf(const QList<QColor>& frames, QSize size, std::array<int, 4> turn = {1, 0, 0, 1});

} // namespace lumeo
