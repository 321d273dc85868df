#include "media/ByteOrder.h"
#include "media/FileWindow.h"
#include "media/movie/ContainerReaders.h"

#include <algorithm>
#include <string_view>

namespace lumeo {
namespace {

using namespace std::string_view_literals;

// Identifiers with their bytes in the order of the file.
constexpr auto headerObject = "\x30\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\x00\xAA\x00\x62\xCE\x6C"sv;
constexpr auto fileProperties = "\xA1\xDC\xAB\x8C\x47\xA9\xCF\x11\x8E\xE4\x00\xC0\x0C\x20\x53\x65"sv;
constexpr auto streamProperties = "\x91\x07\xDC\xB7\xB7\xA9\xCF\x11\x8E\xE6\x00\xC0\x0C\x20\x53\x65"sv;
constexpr auto videoStream = "\xC0\xEF\x19\xBC\x4D\x5B\xCF\x11\xA8\xFD\x00\x80\x5F\x5C\x44\x2B"sv;

constexpr std::size_t identifierSize = 16;
constexpr std::uint64_t objectHeadSize = 24;

void readFileProperties(std::string_view content, MovieProperties& movie) {
    constexpr Instant epoch = std::chrono::sys_days{std::chrono::year{1601} / 1 / 1};
    constexpr std::int64_t unitsPerSecond = 10'000'000;
    const bool isBroadcast = (littleEndian(content, 64, 4) & 1U) != 0;
    if (isBroadcast) {
        return; // a live broadcast: neither time is set
    }
    const auto created = static_cast<std::int64_t>(littleEndian(content, 24, 8));
    addContainerDate(movie, containerDate(epoch, created, unitsPerSecond));
    const double played = static_cast<double>(littleEndian(content, 40, 8)) / unitsPerSecond;
    const double bufferedAhead = static_cast<double>(littleEndian(content, 56, 8)) / 1000;
    if (played > bufferedAhead) {
        movie.durationSeconds = played - bufferedAhead;
    }
}

void readStreamProperties(std::string_view content, MovieProperties& movie) {
    if (content.substr(0, identifierSize) == videoStream && !movie.videoTrack) {
        movie.videoTrack = MovieVideoTrack{static_cast<double>(littleEndian(content, 54, 4)),
                                           static_cast<double>(littleEndian(content, 58, 4))};
    }
}

} // namespace

std::optional<MovieProperties> readAsfMovie(FileWindow& file) {
    const std::string head = file.read(0, 30);
    if (!head.starts_with(headerObject)) {
        return std::nullopt;
    }
    MovieProperties movie;
    const std::uint64_t end = std::min(littleEndian(head, identifierSize, 8), file.size());
    for (std::uint64_t offset = 30; offset < end;) {
        const std::string object = file.read(offset, 96);
        const std::uint64_t size = littleEndian(object, identifierSize, 8);
        if (size < objectHeadSize || size > end) {
            break;
        }
        const std::string_view content = std::string_view(object).substr(objectHeadSize);
        if (object.starts_with(fileProperties)) {
            readFileProperties(content, movie);
        } else if (object.starts_with(streamProperties)) {
            readStreamProperties(content, movie);
        }
        offset += size;
    }
    return movie;
}

} // namespace lumeo
