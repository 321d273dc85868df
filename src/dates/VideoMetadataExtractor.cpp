#include "dates/VideoMetadataExtractor.h"

#include "media/movie/MovieReader.h"
#include "platform/DateText.h"
#include "platform/Utf8Text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace lumeo {
namespace {

std::optional<Instant> dateFromText(std::string_view text) {
    const std::string_view trimmed = trimmingWhitespace(text);
    for (const auto parse : {DateText::parseIso8601, DateText::parseZoned, DateText::parsePlainUtc}) {
        if (const std::optional<Instant> date = parse(trimmed)) {
            return date;
        }
    }
    return std::nullopt;
}

std::optional<Instant> dateOf(const MovieMetadataItem& item) {
    if (item.dateValue) {
        return item.dateValue;
    }
    return item.stringValue ? dateFromText(*item.stringValue) : std::nullopt;
}

std::optional<Instant> creationDate(const MovieProperties& movie) {
    static constexpr std::array<std::string_view, 3> dateKeys{"com.apple.quicktime.creationdate",
                                                              "creationDate", "©day"};
    if (!movie.commonCreationDates.empty()) {
        if (const std::optional<Instant> date = dateOf(movie.commonCreationDates.front())) {
            return date;
        }
    }
    for (const MovieMetadataItem& item : movie.metadata) {
        if (std::ranges::find(dateKeys, item.key) == dateKeys.end()) {
            continue;
        }
        if (const std::optional<Instant> date = dateOf(item)) {
            return date;
        }
    }
    return std::nullopt;
}

/// The whole part. Absent for a value that does not fit a 64-bit integer.
std::optional<std::int64_t> truncated(double value) {
    constexpr double limit = 9223372036854775808.0; // 2 to the power of 63
    if (!(value >= -limit && value < limit)) {
        return std::nullopt;
    }
    return static_cast<std::int64_t>(value);
}

} // namespace

VideoMetadataResult VideoMetadataExtractor::fromProperties(const MovieProperties& properties) {
    VideoMetadataResult result;
    result.creationDate = creationDate(properties);
    if (const std::optional<double> seconds = properties.durationSeconds;
        seconds && std::isfinite(*seconds) && *seconds > 0) {
        result.durationSeconds = seconds;
    }
    if (const std::optional<MovieVideoTrack>& track = properties.videoTrack) {
        const bool isQuarterTurn = std::abs(track->transform[1]) == 1 && std::abs(track->transform[2]) == 1;
        const std::optional<std::int64_t> width = truncated(track->naturalWidth);
        const std::optional<std::int64_t> height = truncated(track->naturalHeight);
        if (width && height) {
            result.pixelWidth = isQuarterTurn ? height : width;
            result.pixelHeight = isQuarterTurn ? width : height;
        }
    }
    return result;
}

VideoMetadataResult VideoMetadataExtractor::extractMetadata(const FileSystem& fileSystem,
                                                            const FilePath& path, MediaHelper& helper,
                                                            const std::stop_token& stop) {
    const std::optional<MovieProperties> properties = MovieReader::read(fileSystem, path, helper, stop);
    return properties ? fromProperties(*properties) : VideoMetadataResult{};
}

} // namespace lumeo
