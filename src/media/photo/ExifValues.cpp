#include "media/photo/ExifValues.h"

#include <utility>

namespace lumeo {

std::optional<std::string> setExifDate(std::optional<std::string> text) {
    const bool isSet = text && text->find_first_not_of(" :0") != std::string::npos;
    return isSet ? std::move(text) : std::nullopt;
}

std::optional<double> decimalDegrees(std::span<const ExifFraction> parts) {
    if (parts.empty() || parts.size() > 3 || parts.front().denominator == 0) {
        return std::nullopt;
    }
    double degrees = 0;
    double unit = 1;
    for (const auto& [numerator, denominator] : parts) {
        if (denominator == 0 && numerator != 0) {
            return std::nullopt;
        }
        degrees += denominator == 0 ? 0 : unit * numerator / denominator;
        unit /= 60;
    }
    return degrees;
}

} // namespace lumeo
