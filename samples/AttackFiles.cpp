#include "samples/AttackFiles.h"

#include "samples/TinyMovies.h"
#include "samples/TinyPhotos.h"

#include <bit>
#include <cstdint>
#include <random>

namespace lumeo {
namespace {

constexpr auto big = bigEndianBytes;
constexpr auto little = littleEndianBytes;
constexpr unsigned heapTag = 0x300A;

/// Bits in the order in which H.264 writes its headers.
class BitWriter {
public:
    BitWriter& bits(unsigned value, unsigned count) {
        while (count-- > 0) {
            bits_ += (value >> count & 1U) != 0 ? '1' : '0';
        }
        return *this;
    }
    /// A number after as many zeros as it has bits below the first one (Exp-Golomb code).
    BitWriter& number(unsigned value) {
        const auto width = static_cast<unsigned>(std::bit_width(value + 1));
        return bits(0, width - 1).bits(value + 1, width);
    }
    /// A unit of the stream, closed by a stop bit. It contains no sequence that would start a new unit.
    [[nodiscard]] std::string unit(char head) const {
        std::string closed = bits_ + '1';
        closed.resize((closed.size() + 7) / 8 * 8, '0');
        std::string bytes("\0\0\0\1", 4);
        bytes += head;
        int zeros = 0;
        for (std::size_t at = 0; at < closed.size(); at += 8) {
            const char byte = static_cast<char>(std::stoi(closed.substr(at, 8), nullptr, 2));
            if (zeros == 2 && static_cast<unsigned char>(byte) <= 3) {
                bytes += '\3';
                zeros = 0;
            }
            bytes += byte;
            zeros = byte == 0 ? zeros + 1 : 0;
        }
        return bytes;
    }

private:
    std::string bits_;
};

std::string h264Of(unsigned width, unsigned height, unsigned frames) {
    constexpr unsigned baseline = 66;
    constexpr unsigned level = 62;
    constexpr unsigned references = 16;
    std::string stream = BitWriter()
                             .bits(baseline, 8)
                             .bits(0, 8)
                             .bits(level, 8)
                             .number(0)
                             .number(0)
                             .number(2)
                             .number(references)
                             .bits(0, 1)
                             .number(width - 1)
                             .number(height - 1)
                             .bits(0b1100, 4) // frames, direct prediction, no cropping, no extras
                             .unit('\x67');
    stream += BitWriter()
                  .number(0)
                  .number(0)
                  .bits(0, 2)
                  .number(0)
                  .number(references - 1)
                  .number(0)
                  .bits(0, 3)
                  .number(0)
                  .number(0)
                  .number(0)
                  .bits(0b100, 3)
                  .unit('\x68');
    stream +=
        BitWriter().number(0).number(7).number(0).bits(0, 4).number(0).bits(0, 2).number(0).number(1).unit(
            '\x65');
    for (unsigned frame = 1; frame < frames; ++frame) {
        stream += BitWriter()
                      .number(0)
                      .number(5)
                      .number(0)
                      .bits(frame % 16, 4)
                      .bits(0, 3)
                      .number(0)
                      .number(1)
                      .number(width * height) // all blocks are skipped, so nothing changes
                      .unit('\x41');
    }
    return stream;
}

std::string withChecksum(const std::string& section) {
    std::uint32_t sum = 0xFFFFFFFF;
    for (const char byte : section) {
        sum ^= std::uint32_t{static_cast<unsigned char>(byte)} << 24U;
        for (int bit = 0; bit < 8; ++bit) {
            sum = sum << 1U ^ ((sum >> 31U) != 0 ? 0x04C11DB7U : 0U);
        }
    }
    return section + big(sum, 4);
}

constexpr std::size_t packetSize = 188;

/// The packets of one table or of one part of a stream. The last packet is filled up.
std::string packets(unsigned id, std::string content, unsigned& counter, bool isTable) {
    std::string bytes;
    if (isTable) {
        content.insert(0, 1, '\0');
        content.resize(packetSize - 4, '\xFF');
    }
    for (std::size_t at = 0; at < content.size();) {
        const std::size_t room = packetSize - 4;
        const std::size_t left = content.size() - at;
        std::string head = "\x47" + big((at == 0 ? 0x4000U : 0U) | id, 2);
        const unsigned count = counter++ % 16;
        if (left >= room) {
            bytes += head + big(0x10 | count, 1) + content.substr(at, room);
            at += room;
            continue;
        }
        const std::size_t stuffing = room - left - 1; // an adaptation field fills the space
        std::string field = big(stuffing, 1);
        if (stuffing > 0) {
            field += '\0' + std::string(stuffing - 1, '\xFF');
        }
        bytes += head + big(0x30 | count, 1) + field + content.substr(at);
        at += left;
    }
    return bytes;
}

} // namespace

std::string crwHeap(const std::vector<std::pair<unsigned, std::string>>& values) {
    std::string bytes;
    std::string directory = little(values.size(), 2);
    for (const auto& [tag, value] : values) {
        directory += little(tag, 2) + little(value.size(), 4) + little(bytes.size(), 4);
        bytes += value;
    }
    return bytes + directory + little(bytes.size(), 4);
}

std::string crwFile(const std::string& heap) {
    return "II" + little(26, 4) + "HEAPCCDR" + little(0x00010002, 4) + std::string(8, '\0') + heap;
}

std::string crwOfDoublingHeaps(int levels) {
    std::string heap = crwHeap({});
    for (int i = 0; i < levels; ++i) {
        const std::string entry = little(heapTag, 2) + little(heap.size(), 4) + little(0, 4);
        const std::size_t directory = heap.size();
        heap += little(2, 2) + entry + entry + little(directory, 4);
    }
    return crwFile(heap);
}

std::string crwOfNestedHeaps(int depth) {
    std::string heap = crwHeap({});
    for (int i = 0; i < depth; ++i) {
        const std::size_t directory = heap.size();
        heap +=
            little(1, 2) + little(heapTag, 2) + little(directory, 4) + little(0, 4) + little(directory, 4);
    }
    return crwFile(heap);
}

std::string transportStreamOfLargeFrames(unsigned width, unsigned height, unsigned frames) {
    constexpr unsigned tableId = 0x100;
    constexpr unsigned trackId = 0x101;
    unsigned tables = 0;
    unsigned maps = 0;
    unsigned track = 0;
    const std::string programs = std::string("\0\xB0\x0D\0\1\xC1\0\0\0\1", 10) + big(0xE000 | tableId, 2);
    const std::string streams = std::string("\2\xB0\x12\0\1\xC1\0\0", 8) + big(0xE000 | trackId, 2) +
                                std::string("\xF0\0\x1B", 3) + big(0xE000 | trackId, 2) +
                                std::string("\xF0\0", 2);
    const std::string head = std::string("\0\0\1\xE0\0\0\x80\x80\5\x21\0\1\0\1", 14);
    return packets(0, withChecksum(programs), tables, true) +
           packets(tableId, withChecksum(streams), maps, true) +
           packets(trackId, head + h264Of(width, height, frames), track, false);
}

std::string pngOfManyChunks(std::size_t chunks) {
    const std::string pixels = pngChunk("IDAT", std::string(8 * 1024, 'x'));
    std::string row = pngChunk("IHDR", big(300, 4) + big(200, 4) + std::string("\x08\0\0\0\0", 5));
    for (std::size_t i = 0; i < chunks; ++i) {
        row += pixels;
    }
    return tinyPng(row + pngChunk("IEND", ""));
}

std::vector<std::string> moviesForRawNames() {
    const std::string asf =
        "\x30\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9" + std::string("\0\xAA\0\x62\xCE\x6C", 6);
    std::string lists = "RIFF" + little(24'000, 4) + "AVI ";
    for (int i = 0; i < 1'000; ++i) {
        lists += "LIST" + little(24'000, 4) + "hdrl" + "LIST" + little(0, 4) + "strl";
    }
    return {asf + little(1'700, 8) + little(100, 4) + std::string(1'700, '\0'), lists,
            movieBox("ftyp", "qt  " + big(0, 4)) + big(8, 4) + "moov" + big(1, 4) + "trak" +
                std::string(1'700, '\0'),
            "\x1A\x45\xDF\xA3" + std::string(1'700, '\x80')};
}

std::string noise(std::size_t size, unsigned seed) {
    std::mt19937 numbers(seed);
    std::string bytes(size, '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(numbers());
    }
    return bytes;
}

} // namespace lumeo
