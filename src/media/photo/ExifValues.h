#pragma once

#include "platform/Instant.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace lumeo {

/// The date that a text tells. Absent for what is none: a camera without a clock leaves blanks or zeros
/// between the colons, and they must not hide a date that stands elsewhere in the file.
std::optional<Instant> photoDate(const std::optional<std::string>& text);

/// A camera's wall clock, as seconds since 1970 on that clock; absent for 0.
std::optional<Instant> photoDate(std::uint32_t clockSeconds);

struct ExifFraction {
    std::uint32_t numerator = 0;
    std::uint32_t denominator = 0;
};

/// Degrees, minutes and seconds as decimal degrees. Absent when there is a fraction of nothing, but for the
/// 0/0 that some write where they leave minutes or seconds out.
std::optional<double> decimalDegrees(std::span<const ExifFraction> parts);

} // namespace lumeo
