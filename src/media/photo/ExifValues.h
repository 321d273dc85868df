#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace lumeo {

/// A date as Exif stores it, when it was set: a camera without a clock leaves blanks or zeros between the
/// colons, which must not hide a date that stands elsewhere in the file.
std::optional<std::string> setExifDate(std::optional<std::string> text);

/// A camera's wall clock, as seconds since 1970 on that clock, in the form of an Exif date; absent for 0.
std::optional<std::string> exifDate(std::uint32_t clockSeconds);

struct ExifFraction {
    std::uint32_t numerator = 0;
    std::uint32_t denominator = 0;
};

/// Degrees, minutes and seconds as decimal degrees. Absent when there is a fraction of nothing, but for the
/// 0/0 that some write where they leave minutes or seconds out.
std::optional<double> decimalDegrees(std::span<const ExifFraction> parts);

} // namespace lumeo
