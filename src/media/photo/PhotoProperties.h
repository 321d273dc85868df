#pragma once

#include "platform/Instant.h"

#include <cstdint>
#include <optional>
#include <string>

namespace lumeo {

/// The metadata of an image file: the pixel size and three dictionaries. Texts are as stored, up to their
/// first NUL. Numbers and dates are decoded. A value is absent when the file does not have it or has it in
/// another type, and a date also when it is not valid.
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
