#include "media/photo/ExifValues.h"

#include "platform/CivilTime.h"
#include "platform/DateText.h"
#include "platform/Utf8Text.h"

#include <chrono>

namespace lumeo {

std::optional<Instant> photoDate(const std::optional<std::string>& text) {
    return text ? DateText::parsePhoto(trimmingWhitespace(*text)) : std::nullopt;
}

std::optional<Instant> photoDate(std::uint32_t clockSeconds) {
    const Instant onThatClock{std::chrono::seconds{clockSeconds}};
    return clockSeconds == 0 ? std::nullopt : DateText::photoClock(wallTimeInUtc(onThatClock));
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
