#include "media/ByteOrder.h"
#include "media/FileWindow.h"
#include "media/movie/ContainerReaders.h"

#include <algorithm>
#include <bit>

namespace lumeo {
namespace {

/// The identifiers of the wanted elements, including their length mark.
enum ElementId : std::uint64_t {
    header = 0x1A45DFA3,
    segment = 0x18538067,
    info = 0x1549A966,
    timestampScale = 0x2AD7B1,
    duration = 0x4489,
    dateUtc = 0x4461,
    tracks = 0x1654AE6B,
    trackEntry = 0xAE,
    trackType = 0x83,
    video = 0xE0,
    pixelWidth = 0xB0,
    pixelHeight = 0xBA,
    displayWidth = 0x54B0,
    displayHeight = 0x54BA,
    displayUnit = 0x54B2,
    cluster = 0x1F43B675,
};

struct Element {
    std::uint64_t id = 0;
    std::uint64_t begin = 0; ///< of the content
    std::uint64_t end = 0;
};

/// The length in bytes of a number. The leading zeros of its first byte tell the length. 0 when there is
/// none.
std::size_t numberWidth(std::string_view bytes, std::size_t offset) {
    const auto first = static_cast<unsigned char>(bigEndian(bytes, offset, 1));
    return first == 0 ? 0 : static_cast<std::size_t>(std::countl_zero(first)) + 1;
}

/// The element at `offset` inside a space that ends at `end`. An element that claims to be longer, or that
/// does not know its size, is cut there.
std::optional<Element> elementAt(FileWindow& file, std::uint64_t offset, std::uint64_t end) {
    const std::string head = file.read(offset, 12);
    const std::size_t idWidth = numberWidth(head, 0);
    const std::size_t sizeWidth = numberWidth(head, idWidth);
    const std::uint64_t headSize = idWidth + sizeWidth;
    if (idWidth == 0 || idWidth > 4 || sizeWidth == 0 || head.size() < headSize || end - offset < headSize) {
        return std::nullopt;
    }
    const std::uint64_t unknown = (std::uint64_t{1} << 7U * sizeWidth) - 1; // all ones, in any width
    const std::uint64_t size = bigEndian(head, idWidth, sizeWidth) & unknown;
    const std::uint64_t begin = offset + headSize;
    const std::uint64_t space = end - begin;
    const std::uint64_t length = size == unknown ? space : std::min(size, space);
    return Element{bigEndian(head, 0, idWidth), begin, begin + length};
}

/// Calls `each` with the elements until it returns false.
template<class Each>
void forEachElement(FileWindow& file, std::uint64_t begin, std::uint64_t end, Each each) {
    while (const std::optional<Element> found = elementAt(file, begin, end)) {
        if (!each(*found)) {
            break;
        }
        begin = found->end;
    }
}

std::uint64_t number(FileWindow& file, const Element& element) {
    const std::uint64_t width = element.end - element.begin;
    return width > 8 ? 0 : bigEndian(file.read(element.begin, width), 0, width);
}

double floatingNumber(FileWindow& file, const Element& element) {
    const std::uint64_t bits = number(file, element);
    return element.end - element.begin == 4 ? std::bit_cast<float>(static_cast<std::uint32_t>(bits))
                                            : std::bit_cast<double>(bits);
}

void readInfo(FileWindow& file, const Element& element, MovieProperties& movie) {
    double nanosecondsPerTick = 1'000'000;
    double ticks = 0;
    forEachElement(file, element.begin, element.end, [&](const Element& part) {
        if (part.id == dateUtc) {
            const auto created = static_cast<std::int64_t>(number(file, part));
            addContainerDate(movie, containerDate(codedEpoch, created, 1'000'000'000));
        } else if (part.id == duration) {
            ticks = floatingNumber(file, part);
        } else if (part.id == timestampScale) {
            nanosecondsPerTick = static_cast<double>(number(file, part));
        }
        return true;
    });
    if (ticks > 0) {
        movie.durationSeconds = ticks * nanosecondsPerTick / 1e9;
    }
}

MovieVideoTrack readVideo(FileWindow& file, const Element& element) {
    MovieVideoTrack stored;
    MovieVideoTrack displayed;
    bool isInPixels = true;
    forEachElement(file, element.begin, element.end, [&](const Element& part) {
        if (part.id == pixelWidth) {
            stored.naturalWidth = static_cast<double>(number(file, part));
        } else if (part.id == pixelHeight) {
            stored.naturalHeight = static_cast<double>(number(file, part));
        } else if (part.id == displayWidth) {
            displayed.naturalWidth = static_cast<double>(number(file, part));
        } else if (part.id == displayHeight) {
            displayed.naturalHeight = static_cast<double>(number(file, part));
        } else if (part.id == displayUnit) {
            isInPixels = number(file, part) == 0;
        }
        return true;
    });
    return isInPixels && displayed.naturalWidth > 0 && displayed.naturalHeight > 0 ? displayed : stored;
}

void readTracks(FileWindow& file, const Element& element, MovieProperties& movie) {
    forEachElement(file, element.begin, element.end, [&](const Element& track) {
        std::optional<MovieVideoTrack> size;
        bool isVideo = false;
        if (track.id == trackEntry) {
            forEachElement(file, track.begin, track.end, [&](const Element& part) {
                if (part.id == video) {
                    size = readVideo(file, part);
                } else if (part.id == trackType) {
                    isVideo = number(file, part) == 1;
                }
                return true;
            });
        }
        if (isVideo && size) {
            movie.videoTrack = size;
        }
        return !movie.videoTrack;
    });
}

} // namespace

std::optional<MovieProperties> readMatroskaMovie(FileWindow& file) {
    const std::optional<Element> head = elementAt(file, 0, file.size());
    if (!head || head->id != header) {
        return std::nullopt;
    }
    const std::optional<Element> body = elementAt(file, head->end, file.size());
    if (!body || body->id != segment) {
        return std::nullopt;
    }
    MovieProperties movie;
    forEachElement(file, body->begin, body->end, [&](const Element& part) {
        if (part.id == info) {
            readInfo(file, part, movie);
        } else if (part.id == tracks) {
            readTracks(file, part, movie);
        }
        return part.id != cluster; // the header ends at the first pictures
    });
    return movie;
}

} // namespace lumeo
