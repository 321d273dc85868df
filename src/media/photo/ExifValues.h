#pragma once

#include "platform/Instant.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace lumeo {

/// The date in a text. Absent when the text is not a date. A camera without a clock leaves blanks or zeros
/// between the colons, and these must not hide a date that is elsewhere in the file.
std::optional<Instant> photoDate(const std::optional<std::string>& text);

/// The time of a camera's wall clock, as seconds since 1970 on that clock. Absent for 0.
std::optional<Instant> photoDate(std::uint32_t clockSeconds);

struct ExifFraction {
    std::uint32_t numerator = 0;
    std::uint32_t denominator = 0;
};

/// Degrees, minutes and seconds as decimal degrees. Absent when a fraction has a denominator of 0. The
/// exception is 0/0, which some cameras write when they leave out minutes or seconds.
std::optional<double> decimalDegrees(std::span<const ExifFraction> parts);

} // namespace lumeo
