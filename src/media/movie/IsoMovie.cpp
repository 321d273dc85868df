#include "media/ByteOrder.h"
#include "media/FileWindow.h"
#include "media/IsoBoxes.h"
#include "media/movie/ContainerReaders.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace lumeo {
namespace {

constexpr std::size_t longestMetadataText = 4096;
constexpr std::size_t mostItems = 512;

/// Calls `each` with the boxes in a range of the file.
template<class Each>
void forEachBox(FileWindow& file, FileRange range, Each each) {
    BoxWalk walk(file, range);
    while (const std::optional<Box> found = walk.next()) {
        each(*found);
    }
}

/// A signed fixed-point number of the display matrix, with 16 bits after the point.
double fixedPoint(std::string_view bytes, std::size_t offset) {
    return static_cast<std::int32_t>(bigEndian(bytes, offset, 4)) / 65536.0;
}

/// The key of an item whose name is four bytes of Latin-1, such as "©day".
std::string latinKey(std::uint32_t type) {
    std::string key;
    for (const unsigned shift : {24U, 16U, 8U, 0U}) {
        const unsigned letter = type >> shift & 0xFFU;
        if (letter < 0x80U) {
            key += static_cast<char>(letter);
        } else {
            key += static_cast<char>(0xC0U | letter >> 6U);
            key += static_cast<char>(0x80U | (letter & 0x3FU));
        }
    }
    return key;
}

class IsoMovie {
public:
    explicit IsoMovie(FileWindow& file) : file_(file) {}

    std::optional<MovieProperties> read() {
        const std::optional<Box> movie = findMovie();
        if (!movie) {
            return std::nullopt;
        }
        forEachBox(file_, movie->content, [this](const Box& child) { readPart(child); });
        if (!hasHeader_) {
            return std::nullopt;
        }
        if (!isHeaderDated_) {
            addContainerDate(movie_, trackDate_);
        }
        if (timeScale_ > 0 && duration_ > 0) {
            movie_.durationSeconds = static_cast<double>(duration_) / static_cast<double>(timeScale_);
        }
        return std::move(movie_);
    }

private:
    [[nodiscard]] std::string content(const Box& of, std::size_t most) {
        return file_.read(of.content.offset,
                          static_cast<std::size_t>(std::min<std::uint64_t>(most, of.content.length)));
    }

    std::optional<Box> findMovie() {
        static constexpr std::array firstBoxes{fourCC("ftyp"), fourCC("moov"), fourCC("mdat"),
                                               fourCC("wide"), fourCC("free"), fourCC("skip"),
                                               fourCC("pnot"), fourCC("uuid"), fourCC("junk")};
        BoxWalk walk(file_, {0, file_.size()});
        std::optional<Box> found = walk.next();
        if (!found || std::ranges::find(firstBoxes, found->type) == firstBoxes.end()) {
            return std::nullopt;
        }
        while (found && found->type != fourCC("moov")) {
            found = walk.next();
        }
        return found;
    }

    void readPart(const Box& part) {
        switch (part.type) {
        case fourCC("mvhd"):
            readHeader(content(part, 32));
            break;
        case fourCC("trak"):
            readTrack(part);
            break;
        case fourCC("udta"):
            forEachBox(file_, part.content, [this](const Box& child) { readUserData(child); });
            break;
        case fourCC("meta"):
            readMetadata(part);
            break;
        case fourCC("mvex"):
            forEachBox(file_, part.content, [this](const Box& child) { readFragmentsHeader(child); });
            break;
        default:
            break;
        }
    }

    /// The time in the header of a movie, a track or its media. All three headers start in the same way.
    static std::optional<Instant> creationDate(std::string_view header) {
        constexpr Instant epoch = std::chrono::sys_days{std::chrono::year{1904} / 1 / 1};
        constexpr std::uint64_t secondsUntil1970 = 2'082'844'800;
        const std::uint64_t created = bigEndian(header, 4, bigEndian(header, 0, 1) == 1 ? 8 : 4);
        // No digital movie was recorded before 1970. Such a time comes from a writer that counts from 1970.
        return containerDate(created < secondsUntil1970 ? Instant{} : epoch,
                             static_cast<std::int64_t>(created), 1);
    }

    void readHeader(std::string_view header) {
        hasHeader_ = true;
        const bool isLong = bigEndian(header, 0, 1) == 1;
        const std::size_t width = isLong ? 8 : 4;
        const std::optional<Instant> date = creationDate(header);
        isHeaderDated_ = date.has_value();
        addContainerDate(movie_, date);
        timeScale_ = bigEndian(header, 4 + 2 * width, 4);
        setDuration(bigEndian(header, 8 + 2 * width, width), isLong);
    }

    /// A fragmented movie has its whole duration here and 0 in its header.
    void readFragmentsHeader(const Box& part) {
        if (part.type == fourCC("mehd") && duration_ == 0) {
            const std::string header = content(part, 12);
            const bool isLong = bigEndian(header, 0, 1) == 1;
            setDuration(bigEndian(header, 4, isLong ? 8 : 4), isLong);
        }
    }

    void setDuration(std::uint64_t duration, bool isLong) {
        const bool isUnknown = duration == (isLong ? ~std::uint64_t{0} : 0xFFFF'FFFFU);
        duration_ = isUnknown ? 0 : duration;
    }

    void readTrack(const Box& track) {
        if (movie_.videoTrack) {
            return;
        }
        std::optional<MovieVideoTrack> size;
        bool isVideo = false;
        forEachBox(file_, track.content, [&](const Box& part) {
            if (part.type == fourCC("tkhd")) {
                const std::string header = content(part, 96);
                size = trackSize(header);
                keepTrackDate(header);
            } else if (part.type == fourCC("mdia")) {
                forEachBox(file_, part.content, [&](const Box& media) {
                    if (media.type == fourCC("mdhd")) {
                        keepTrackDate(content(media, 12));
                    }
                    isVideo |=
                        media.type == fourCC("hdlr") && bigEndian(content(media, 12), 8, 4) == fourCC("vide");
                });
            }
        });
        if (isVideo) {
            movie_.videoTrack = size;
        }
    }

    void keepTrackDate(std::string_view header) {
        if (!trackDate_) {
            trackDate_ = creationDate(header);
        }
    }

    static MovieVideoTrack trackSize(std::string_view header) {
        const std::size_t matrix = bigEndian(header, 0, 1) == 1 ? 52 : 40;
        const auto at = [&](std::size_t index) { return fixedPoint(header, matrix + 4 * index); };
        MovieVideoTrack track;
        track.transform = {at(0), at(1), at(3), at(4), at(6), at(7)};
        track.naturalWidth = static_cast<double>(bigEndian(header, matrix + 36, 4)) / 65536.0;
        track.naturalHeight = static_cast<double>(bigEndian(header, matrix + 40, 4)) / 65536.0;
        return track;
    }

    void readUserData(const Box& item) {
        if (item.type == fourCC("meta")) {
            readMetadata(item);
        } else if (item.type >> 24U == 0xA9U) {
            // A list of texts, one for each language. Each has a length, a language and its bytes.
            const std::string texts = content(item, longestMetadataText);
            for (std::size_t at = 0; at + 4 <= texts.size();) {
                const std::size_t length = bigEndian(texts, at, 2);
                addText(latinKey(item.type), texts.substr(at + 4, length));
                at += 4 + length;
            }
        }
    }

    void readMetadata(const Box& metadata) {
        // QuickTime's box starts with its parts, and MP4's with a version.
        const bool startsWithParts = bigEndian(content(metadata, 8), 4, 4) == fourCC("hdlr");
        std::vector<std::string> keys;
        forEachBox(file_, behind(metadata.content, startsWithParts ? 0 : 4), [&](const Box& part) {
            if (part.type == fourCC("keys")) {
                keys = readKeys(part);
            } else if (part.type == fourCC("ilst")) {
                forEachBox(file_, part.content, [&](const Box& item) { readItem(item, keys); });
            }
        });
    }

    std::vector<std::string> readKeys(const Box& part) {
        std::vector<std::string> keys;
        // A key has the form of a box whose type is the key's name space.
        forEachBox(file_, behind(part.content, 8), [&](const Box& key) {
            if (keys.size() < mostItems) {
                keys.push_back(content(key, longestMetadataText));
            }
        });
        return keys;
    }

    void readItem(const Box& item, const std::vector<std::string>& keys) {
        const std::string key = keys.empty()                                 ? latinKey(item.type)
                                : item.type >= 1 && item.type <= keys.size() ? keys[item.type - 1]
                                                                             : std::string();
        if (key.empty()) {
            return;
        }
        forEachBox(file_, item.content, [&](const Box& value) {
            constexpr std::uint64_t utf8 = 1;
            if (value.type != fourCC("data")) {
                return;
            }
            const std::string data = content(value, 8 + longestMetadataText);
            if (data.size() >= 8 && bigEndian(data, 0, 4) == utf8) {
                addText(key, data.substr(8));
            } else {
                add({key, std::nullopt, std::nullopt});
            }
        });
    }

    void addText(std::string key, std::string_view text) {
        add({std::move(key), std::nullopt, replacingInvalidUtf8(text.substr(0, text.find('\0')))});
    }

    void add(MovieMetadataItem item) {
        if (movie_.metadata.size() < mostItems) {
            movie_.metadata.push_back(std::move(item));
        }
    }

    FileWindow& file_;
    MovieProperties movie_;
    bool hasHeader_ = false;
    bool isHeaderDated_ = false;
    std::optional<Instant> trackDate_; ///< of the first track that has a date
    std::uint64_t timeScale_ = 0;
    std::uint64_t duration_ = 0;
};

} // namespace

std::optional<MovieProperties> readIsoMovie(FileWindow& file) {
    return IsoMovie(file).read();
}

} // namespace lumeo
