#pragma once

#include "platform/Instant.h"

#include <cstdint>
#include <optional>
#include <string>

namespace lumeo {

/// What an image file says of itself: the pixel size and three dictionaries. Texts stand as stored up
/// to their first NUL; numbers and dates are decoded; everything is absent that the file does not carry or
/// carries in another type, and so is a date that is none.
struct PhotoProperties {
    struct Exif {
        std::optional<Instant> dateTimeOriginal;
        std::optional<Instant> dateTimeDigitized;
        std::optional<std::string> lensModel;
        std::optional<std::int64_t> pixelXDimension;
        std::optional<std::int64_t> pixelYDimension;
        friend bool operator==(const Exif&, const Exif&) = default;
    };
    struct Tiff {
        std::optional<Instant> dateTime;
        std::optional<std::string> make;
        std::optional<std::string> model;
        friend bool operator==(const Tiff&, const Tiff&) = default;
    };
    struct Gps {
        std::optional<double> latitude;          ///< unsigned decimal degrees
        std::optional<std::string> latitudeRef;  ///< "N" or "S"
        std::optional<double> longitude;         ///< unsigned decimal degrees
        std::optional<std::string> longitudeRef; ///< "E" or "W"
        friend bool operator==(const Gps&, const Gps&) = default;
    };
    std::optional<std::int64_t> pixelWidth;
    std::optional<std::int64_t> pixelHeight;
    Exif exif;
    Tiff tiff;
    Gps gps;
    friend bool operator==(const PhotoProperties&, const PhotoProperties&) = default;
};

} // namespace lumeo
