#include "samples/TinyMovies.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace lumeo {
namespace {

using namespace std::string_literals;

constexpr std::uint32_t ticksPerSecond = 1000;

/// Whole units since `epoch`, or 0 for an unset time.
std::uint64_t unitsSince(Instant epoch, std::optional<Instant> time, std::int64_t microsecondsPerUnit) {
    return time ? static_cast<std::uint64_t>((*time - epoch).count() / microsecondsPerUnit) : 0;
}

constexpr Instant startOf(int year) {
    return std::chrono::sys_days{std::chrono::year{year} / 1 / 1};
}

std::uint64_t ticks(const TinyMovie& movie) {
    return static_cast<std::uint64_t>(std::lround(movie.durationSeconds * ticksPerSecond));
}

std::string fixedPoint(double value, int bitsBehindPoint = 16) {
    const double shifted = std::ldexp(value, bitsBehindPoint);
    return bigEndianBytes(static_cast<std::uint32_t>(std::lround(shifted)), 4);
}

std::string matrix(const std::array<double, 4>& transform) {
    const std::string zero(4, '\0');
    return fixedPoint(transform[0]) + fixedPoint(transform[1]) + zero + fixedPoint(transform[2]) +
           fixedPoint(transform[3]) + zero + zero + zero + fixedPoint(1, 30);
}

std::string quickTimeTrack(const TinyMovie& movie) {
    const std::string header = bigEndianBytes(7, 4) + std::string(8, '\0') + bigEndianBytes(1, 4) +
                               std::string(4, '\0') + bigEndianBytes(ticks(movie), 4) +
                               std::string(16, '\0') + matrix(movie.transform) + fixedPoint(movie.width) +
                               fixedPoint(movie.height);
    const std::uint64_t created = unitsSince(startOf(1904), movie.trackTime, 1'000'000);
    const std::string mediaHeader = std::string(4, '\0') + bigEndianBytes(created, 4) + std::string(4, '\0') +
                                    bigEndianBytes(ticksPerSecond, 4) + bigEndianBytes(ticks(movie), 4) +
                                    std::string(4, '\0');
    const std::string handler = std::string(8, '\0') + "vide" + std::string(13, '\0');
    return movieBox("trak", movieBox("tkhd", header) +
                                movieBox("mdia", movieBox("mdhd", mediaHeader) + movieBox("hdlr", handler)));
}

/// The box of QuickTime metadata with one key.
std::string quickTimeMetadata(std::string_view key, std::string_view text) {
    const std::string handler = std::string(8, '\0') + "mdta" + std::string(13, '\0');
    const std::string keys = bigEndianBytes(1, 8) + movieBox("mdta", key);
    const std::string value =
        movieBox("data", bigEndianBytes(1, 4) + std::string(4, '\0') + std::string(text));
    const std::string item = bigEndianBytes(8 + value.size(), 4) + bigEndianBytes(1, 4) + value;
    return movieBox("meta", movieBox("hdlr", handler) + movieBox("keys", keys) + movieBox("ilst", item));
}

std::string userData(std::string_view text) {
    constexpr int english = 0x15C7; // "eng", with five bits for each letter
    return movieBox(
        "udta", movieBox("\xA9"
                         "day",
                         bigEndianBytes(text.size(), 2) + bigEndianBytes(english, 2) + std::string(text)));
}

/// A Matroska element. Its size takes eight bytes.
std::string element(std::uint64_t id, std::string_view content) {
    const int idWidth = (static_cast<int>(std::bit_width(id)) + 7) / 8;
    return bigEndianBytes(id, idWidth) + bigEndianBytes(std::uint64_t{1} << 56U | content.size(), 8) +
           std::string(content);
}

std::string asfObject(std::string_view identifier, std::string_view content) {
    return std::string(identifier) + littleEndianBytes(24 + content.size(), 8) + std::string(content);
}

std::string chunk(std::string_view name, std::string_view content) {
    return std::string(name) + littleEndianBytes(content.size(), 4) + std::string(content) +
           std::string(content.size() % 2, '\0');
}

/// The last two digits of a number, four bits each; below 0 it was never set.
char decimal(int number) {
    return number < 0 ? '\xFF' : static_cast<char>(number / 10 % 10 << 4 | number % 10);
}

} // namespace

std::string bigEndianBytes(std::uint64_t value, int width) {
    std::string bytes = littleEndianBytes(value, width);
    std::ranges::reverse(bytes);
    return bytes;
}

std::string littleEndianBytes(std::uint64_t value, int width) {
    std::string bytes;
    for (int index = 0; index < width; ++index) {
        bytes += static_cast<char>(value >> 8U * static_cast<unsigned>(index));
    }
    return bytes;
}

std::string movieBox(std::string_view type, std::string_view content) {
    return bigEndianBytes(8 + content.size(), 4) + std::string(type) + std::string(content);
}

std::string tinyQuickTime(const TinyMovie& movie) {
    const std::uint64_t created = unitsSince(startOf(1904), movie.headerTime, 1'000'000);
    std::string parts =
        movieBox("mvhd", std::string(4, '\0') + bigEndianBytes(created, 4) + bigEndianBytes(created, 4) +
                             bigEndianBytes(ticksPerSecond, 4) + bigEndianBytes(ticks(movie), 4) +
                             fixedPoint(1) + std::string(12, '\0') + matrix({1, 0, 0, 1}) +
                             std::string(24, '\0') + bigEndianBytes(2, 4));
    parts += quickTimeTrack(movie);
    if (movie.userDataDay) {
        parts += userData(*movie.userDataDay);
    }
    if (movie.quickTimeCreationDate) {
        parts += quickTimeMetadata("com.apple.quicktime.creationdate", *movie.quickTimeCreationDate);
    }
    return movieBox("ftyp", "qt  "s + std::string(4, '\0') + "qt  ") + movieBox("mdat", "no pictures") +
           movieBox("moov", parts);
}

std::string tinyMatroska(const TinyMovie& movie) {
    const std::uint64_t ticks = std::bit_cast<std::uint64_t>(movie.durationSeconds * ticksPerSecond);
    std::string info =
        element(0x2AD7B1, bigEndianBytes(1'000'000, 3)) + element(0x4489, bigEndianBytes(ticks, 8));
    if (movie.headerTime) {
        info += element(0x4461, bigEndianBytes(unitsSince(codedEpoch, movie.headerTime, 1) * 1000, 8));
    }
    const std::string track =
        element(0xD7, bigEndianBytes(1, 1)) + element(0x83, bigEndianBytes(1, 1)) + element(0x86, "V_MJPEG") +
        element(0xE0, element(0xB0, bigEndianBytes(static_cast<std::uint64_t>(movie.width), 2)) +
                          element(0xBA, bigEndianBytes(static_cast<std::uint64_t>(movie.height), 2)));
    return element(0x1A45DFA3, element(0x4282, "matroska")) +
           element(0x18538067, element(0x1549A966, info) + element(0x1654AE6B, element(0xAE, track)) +
                                   element(0x1F43B675, element(0xE7, bigEndianBytes(0, 1))));
}

std::string tinyAsf(const TinyMovie& movie) {
    constexpr std::uint64_t unitsPerSecond = 10'000'000;
    const std::uint64_t played = ticks(movie) * (unitsPerSecond / ticksPerSecond);
    const std::uint64_t created = unitsSince(startOf(1601), movie.headerTime, 1) * 10;
    const std::string objects =
        asfObject("\xA1\xDC\xAB\x8C\x47\xA9\xCF\x11\x8E\xE4\x00\xC0\x0C\x20\x53\x65"s,
                  std::string(24, '\0') + littleEndianBytes(created, 8) + std::string(8, '\0') +
                      littleEndianBytes(played, 8) + std::string(32, '\0')) +
        asfObject("\x91\x07\xDC\xB7\xB7\xA9\xCF\x11\x8E\xE6\x00\xC0\x0C\x20\x53\x65"s,
                  "\xC0\xEF\x19\xBC\x4D\x5B\xCF\x11\xA8\xFD\x00\x80\x5F\x5C\x44\x2B"s +
                      std::string(38, '\0') + littleEndianBytes(static_cast<std::uint64_t>(movie.width), 4) +
                      littleEndianBytes(static_cast<std::uint64_t>(movie.height), 4));
    const std::string head = littleEndianBytes(2, 4) + "\x01\x02" + objects;
    return asfObject("\x30\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\x00\xAA\x00\x62\xCE\x6C"s, head);
}

std::string tinyAvi(const TinyMovie& movie) {
    const auto width = static_cast<std::uint64_t>(movie.width);
    const auto height = static_cast<std::uint64_t>(movie.height);
    std::string header =
        chunk("avih", littleEndianBytes(1000, 4) + std::string(12, '\0') +
                          littleEndianBytes(ticks(movie), 4) + std::string(12, '\0') +
                          littleEndianBytes(width, 4) + littleEndianBytes(height, 4) + std::string(16, '\0'));
    const std::string stream = "vidsMJPG" + std::string(12, '\0') + littleEndianBytes(1, 4) +
                               littleEndianBytes(ticksPerSecond, 4) + std::string(4, '\0') +
                               littleEndianBytes(ticks(movie), 4) + std::string(20, '\0');
    std::string format =
        littleEndianBytes(40, 4) + littleEndianBytes(width, 4) + littleEndianBytes(height, 4);
    format += littleEndianBytes(1, 2) + littleEndianBytes(24, 2) + "MJPG";
    format.resize(40);
    header += chunk("LIST", "strl" + chunk("strh", stream) + chunk("strf", format));
    if (movie.wallClock) {
        header += chunk("IDIT", *movie.wallClock);
    }
    const std::string pictures =
        movie.pictures.empty() ? "" : chunk("01wb", "odd") + chunk("00dc", movie.pictures);
    const std::string info = movie.infoDate ? chunk("LIST", "INFO" + chunk("ICRD", *movie.infoDate)) : "";
    return chunk("RIFF", "AVI " + chunk("LIST", "hdrl" + header) + chunk("LIST", "movi" + pictures) + info);
}

std::string tinyDv(const WallTime& clock) {
    const std::string none(5, '\xFF');
    const std::string date{'\x62', '\xFF', decimal(clock.day),
                           static_cast<char>(decimal(clock.month) | '\xE0'), decimal(clock.year)};
    const std::string time{'\x63', '\xFF', decimal(clock.second), decimal(clock.minute), decimal(clock.hour)};
    const auto block = [](char kind, std::string content) {
        content.resize(77, '\xFF');
        return kind + std::string("\7\0", 2) + content;
    };
    const std::string head(3, '\0');
    return block('\x1F', "") + block('\x3F', head + none + head + time) + block('\x3F', head + none) +
           block('\x5F', none) + block('\x5F', none + none + date) + block('\x5F', "");
}

std::string tinyAvchd(const WallTime& clock, std::size_t packetSize) {
    std::string facts = "MDPM\3";
    facts += {'\x13', '\0', '\0', '\0', '\0'};
    facts += {'\x18', '\x02', decimal(clock.year / 100), decimal(clock.year), decimal(clock.month)};
    facts += {'\x19', decimal(clock.day), decimal(clock.hour), decimal(clock.minute), decimal(clock.second)};
    std::string stream = "\x17\xEE\x8C\x60\xF8\x4D\x11\xD9\x8C\xD6\x08\0\x20\x0C\x9A\x66"s;
    for (const char byte : facts) {
        const bool isEscaped = static_cast<unsigned char>(byte) <= 3 && stream.ends_with("\0\0"s);
        stream += isEscaped ? "\3"s + byte : std::string(1, byte);
    }
    const auto packet = [packetSize](std::uint64_t head, const std::string& field,
                                     const std::string& payload) {
        std::string bytes = std::string(packetSize - 188, '\0') + "\x47" + bigEndianBytes(head, 3) + field;
        bytes.resize(packetSize - payload.size(), '\xFF');
        return bytes + payload;
    };
    const std::size_t cut = 30;
    const std::string begin = "\0\0\1\xE0"s + std::string(150 - cut, '\x80') + stream.substr(0, cut);
    const std::string rest = stream.substr(cut);
    return packet(0x400010, "", std::string(184, '\0')) +
           packet(0x501130, bigEndianBytes(183 - begin.size(), 1), begin) +
           packet(0x110010, "", std::string(184, 'x')) +
           packet(0x101130, bigEndianBytes(183 - rest.size(), 1), rest) +
           packet(0x1FFF10, "", std::string(184, '\0'));
}

} // namespace lumeo
