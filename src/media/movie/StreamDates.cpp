#include "media/movie/StreamDates.h"

#include "media/FileWindow.h"
#include "platform/CivilTime.h"

#include <algorithm>
#include <array>
#include <string>

namespace lumeo {
namespace {

/// So large that a time that contains it is never real.
constexpr int noNumber = 100'000;

unsigned byteAt(std::string_view bytes, std::size_t at) {
    return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0U;
}

/// Two decimal digits in the bits of a byte that `mask` selects.
int decimal(unsigned byte, unsigned mask = 0xFF) {
    const unsigned tens = (byte & mask) >> 4U;
    const unsigned ones = byte & mask & 0xFU;
    return tens > 9 || ones > 9 ? noNumber : static_cast<int>(tens * 10 + ones);
}

std::optional<Instant> wallClock(const WallTime& time) {
    return isRealTime(time) ? LocalCalendar::compose(time) : std::nullopt;
}

/// The content of a packet, its stream, and whether it starts a picture.
struct Packet {
    unsigned stream = 0;
    bool isStart = false;
    std::string_view payload;
};

constexpr std::size_t packetSize = 188; ///< without what some formats add between packets

Packet packetOf(std::string_view bytes) {
    const unsigned control = byteAt(bytes, 3) >> 4U & 3U; // 1: a payload, 2: an extra field before it
    const std::size_t begin = 4 + ((control & 2U) != 0 ? 1 + byteAt(bytes, 4) : 0);
    const bool hasPayload = byteAt(bytes, 0) == 0x47 && (control & 1U) != 0 && begin < bytes.size();
    return {(byteAt(bytes, 1) & 0x1FU) << 8U | byteAt(bytes, 2), (byteAt(bytes, 1) & 0x40U) != 0,
            hasPayload ? bytes.substr(begin) : std::string_view()};
}

bool beginsPicture(const Packet& packet) {
    constexpr std::string_view start("\0\0\1", 3);
    return packet.isStart && packet.payload.starts_with(start) && (byteAt(packet.payload, 3) & 0xF0U) == 0xE0;
}

/// H.264 inserts a 3 after two zeros, so that no data looks like a start code.
std::string withoutEscapes(std::string_view escaped) {
    std::string bytes;
    unsigned zeros = 0;
    for (const char byte : escaped) {
        const bool isEscape = zeros >= 2 && byte == '\3';
        zeros = byte == '\0' ? zeros + 1 : 0;
        if (!isEscape) {
            bytes += byte;
        }
    }
    return bytes;
}

// The number of sets of camera facts, and then each set with its number and four bytes.
std::optional<Instant> dateInCameraFacts(std::string_view facts) {
    constexpr unsigned yearAndMonth = 0x18;
    constexpr unsigned dayAndTime = 0x19;
    WallTime time;
    const std::size_t count = byteAt(facts, 0);
    for (std::size_t i = 0; i < count; ++i) {
        const auto at = [&](std::size_t byte) { return byteAt(facts, 1 + i * 5 + byte); };
        if (at(0) == yearAndMonth) { // after the zone, which a wall clock does not need
            time.year = decimal(at(2)) * 100 + decimal(at(3));
            time.month = decimal(at(4));
        } else if (at(0) == dayAndTime) {
            time.day = decimal(at(1));
            time.hour = decimal(at(2));
            time.minute = decimal(at(3));
            time.second = decimal(at(4));
        }
    }
    return wallClock(time);
}

/// Packs of five bytes: their kind, then four bytes of content.
class DvPacks {
public:
    void read(std::string_view pack) {
        constexpr unsigned recordingDate = 0x62;
        constexpr unsigned recordingTime = 0x63;
        if (byteAt(pack, 0) == recordingDate) {
            const int year = decimal(byteAt(pack, 4));
            constexpr int earliest = 90; // DV is younger than this
            day_ = {(year < earliest ? 2000 : 1900) + year, decimal(byteAt(pack, 3), 0x1F),
                    decimal(byteAt(pack, 2), 0x3F), 12};
        } else if (byteAt(pack, 0) == recordingTime) {
            time_ = {1,
                     1,
                     1,
                     decimal(byteAt(pack, 4), 0x3F),
                     decimal(byteAt(pack, 3), 0x7F),
                     decimal(byteAt(pack, 2), 0x7F)};
        }
    }

    [[nodiscard]] bool isWhole() const { return isRealTime(day_) && isRealTime(time_); }

    /// At noon when the time is not set.
    [[nodiscard]] std::optional<Instant> date() const {
        WallTime date = day_;
        if (isRealTime(time_)) {
            date.hour = time_.hour;
            date.minute = time_.minute;
            date.second = time_.second;
        }
        return wallClock(date);
    }

private:
    WallTime day_;
    WallTime time_;
};

/// A block of 80 bytes. Two kinds of blocks hold packs.
void readDvBlock(std::string_view block, DvPacks& packs) {
    constexpr std::size_t headSize = 3;
    constexpr std::size_t packSize = 5;
    const unsigned kind = byteAt(block, 0) >> 5U;
    if (kind == 1) { // with the time code; each pack has a header
        for (std::size_t i = 0; i < 6; ++i) {
            packs.read(block.substr(headSize + i * (headSize + packSize) + headSize, packSize));
        }
    } else if (kind == 2) { // with the picture
        for (std::size_t i = 0; i < 15; ++i) {
            packs.read(block.substr(headSize + i * packSize, packSize));
        }
    }
}

} // namespace

std::optional<TransportPackets> transportPackets(std::string_view head) {
    constexpr char sync = '\x47';
    constexpr std::size_t fewest = 3;
    for (const std::size_t length : {188U, 192U, 204U}) {
        for (std::size_t first = 0; first < length && first + length * (fewest - 1) < head.size(); ++first) {
            std::size_t at = first;
            while (at < head.size() && head[at] == sync) {
                at += length;
            }
            if (at >= head.size()) {
                return TransportPackets{first, length};
            }
        }
    }
    return std::nullopt;
}

std::optional<Instant> avchdDate(FileWindow& file) {
    constexpr std::string_view mark("\x17\xEE\x8C\x60\xF8\x4D\x11\xD9\x8C\xD6\x08\0\x20\x0C\x9A\x66MDPM", 20);
    constexpr std::size_t looked = 1024 * 1024;
    constexpr std::size_t longestFacts = 2'048; // 255 sets of five bytes, including escapes
    const auto packets = transportPackets(file.read(0, 4 * 1024));
    if (!packets) {
        return std::nullopt;
    }
    std::string video;
    std::optional<unsigned> stream;
    std::size_t found = std::string::npos;
    for (std::uint64_t at = packets->first; at < looked; at += packets->length) {
        const auto bytes = file.view(at, packetSize);
        if (!bytes || (found != std::string::npos && video.size() > found + longestFacts)) {
            break;
        }
        const Packet packet = packetOf(*bytes);
        if (!stream && beginsPicture(packet)) {
            stream = packet.stream;
        }
        if (packet.stream == stream) {
            const std::size_t unseen = video.size() - std::min(video.size(), mark.size());
            video += packet.payload;
            found = found == std::string::npos ? video.find(mark, unseen) : found;
        }
    }
    return found == std::string::npos
               ? std::nullopt
               : dateInCameraFacts(
                     withoutEscapes(std::string_view(video).substr(found + mark.size(), longestFacts)));
}

std::optional<Instant> dvDate(FileWindow& file, std::uint64_t offset) {
    constexpr std::size_t blockSize = 80;
    constexpr std::size_t blocksInPart = 150;
    constexpr std::size_t firstParts = 24; // of two frames, with twelve in each at 25 frames a second
    constexpr std::size_t firstBlocks = 6; // those with packs come before picture and sound
    DvPacks packs;
    for (std::size_t part = 0; part < firstParts && !packs.isWhole(); ++part) {
        for (std::size_t block = 0; block < firstBlocks; ++block) {
            const std::uint64_t at = offset + (part * blocksInPart + block) * blockSize;
            const auto bytes = file.view(at, blockSize);
            if (!bytes) {
                return packs.date();
            }
            readDvBlock(*bytes, packs);
        }
    }
    return packs.date();
}

} // namespace lumeo
