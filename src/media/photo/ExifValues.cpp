#include "media/photo/ExifValues.h"

#include <chrono>
#include <cstdio>
#include <utility>

namespace lumeo {

std::optional<std::string> setExifDate(std::optional<std::string> text) {
    const bool isSet = text && text->find_first_not_of(" :0") != std::string::npos;
    return isSet ? std::move(text) : std::nullopt;
}

std::optional<std::string> exifDate(std::uint32_t clockSeconds) {
    if (clockSeconds == 0) {
        return std::nullopt;
    }
    const std::chrono::sys_seconds time{std::chrono::seconds{clockSeconds}};
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date{day};
    const std::chrono::hh_mm_ss clock{time - day};
    char formatted[32];
    const int length =
        std::snprintf(formatted, sizeof formatted, "%04d:%02u:%02u %02d:%02d:%02d",
                      static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                      static_cast<unsigned>(date.day()), static_cast<int>(clock.hours().count()),
                      static_cast<int>(clock.minutes().count()), static_cast<int>(clock.seconds().count()));
    return std::string(formatted, static_cast<std::size_t>(length));
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
