#include "media/photo/ChunkReader.h"

#include "media/ChunkWalk.h"

#include <algorithm>
#include <limits>
#include <string>
#include <string_view>

namespace lumeo {

namespace {

bool beginsWith(FileWindow& file, FileRange range, std::string_view bytes) {
    return range.length >= bytes.size() && file.view(range.offset, bytes.size()) == bytes;
}

void readWebpChunk(FileWindow& file, const Chunk& chunk, ChunkContents& contents) {
    constexpr std::string_view exifName("Exif\0\0", 6); // not required, but often there
    if (chunk.tag == "EXIF" && !contents.exif) {
        contents.exif = beginsWith(file, chunk.content, exifName) ? behind(chunk.content, exifName.size())
                                                                  : chunk.content;
    } else if (chunk.tag == "XMP ") {
        contents.xmpPacket = chunk.content;
    }
}

/// The blocks of a GIF. Each is followed by parts that tell their length in one byte.
class GifWalk {
public:
    explicit GifWalk(FileWindow& file) : file_(file) {
        constexpr std::uint64_t headerSize = 13;
        at_ = headerSize + coloursAt(10);
    }

    std::optional<FileRange> xmpPacket() {
        while (!isLost_) {
            const unsigned introducer = byteAt(at_);
            if (introducer == '!') {
                const std::uint64_t nameAt = at_ + 2;
                const bool isXmp = file_.view(nameAt, xmpBlock.size()) == xmpBlock;
                at_ = nameAt + (isXmp ? xmpBlock.size() : 0);
                const std::uint64_t begin = at_;
                skipParts();
                if (isXmp) {
                    return FileRange{begin, at_ - begin};
                }
            } else if (introducer == ',') {
                constexpr std::uint64_t headSize = 10;
                at_ += headSize + coloursAt(at_ + 9) + 1;
                skipParts();
            } else {
                break;
            }
        }
        return isLost_ ? packetNearTheEnd() : std::nullopt;
    }

private:
    static constexpr std::string_view xmpBlock = "\x0BXMP DataXMP";

    unsigned byteAt(std::uint64_t at) {
        const auto byte = file_.view(at, 1);
        return byte ? static_cast<unsigned char>(byte->front()) : 0U;
    }

    /// The length of the colour table that these flags announce.
    std::uint64_t coloursAt(std::uint64_t flagsAt) {
        const unsigned flags = byteAt(flagsAt);
        return (flags & 0x80U) == 0 ? 0 : std::uint64_t{3} << ((flags & 7U) + 1);
    }

    void skipParts() {
        constexpr unsigned mostParts = 1'024;
        for (unsigned length = 1; length != 0 && !isLost_; at_ += length + 1) {
            length = byteAt(at_);
            isLost_ = ++parts_ > mostParts;
        }
    }

    std::optional<FileRange> packetNearTheEnd() {
        constexpr std::uint64_t reach = 64 * 1024;
        const std::uint64_t size = file_.size();
        const std::uint64_t begin = size - std::min(size, reach);
        const std::size_t found = file_.read(begin, reach).find(xmpBlock);
        return found == std::string::npos
                   ? std::nullopt
                   : std::optional(behind({begin, size - begin}, found + xmpBlock.size()));
    }

    FileWindow& file_;
    std::uint64_t at_ = 0;
    unsigned parts_ = 0;
    bool isLost_ = false; ///< gave up after too many parts
};

} // namespace

ChunkContents readWebp(FileWindow& file) {
    constexpr std::uint64_t firstChunk = 12;
    ChunkWalk walk(file, {firstChunk, std::numeric_limits<std::int64_t>::max()}, riffChunks);
    ChunkContents contents;
    while (const std::optional<Chunk> chunk = walk.next()) {
        readWebpChunk(file, *chunk, contents);
    }
    return contents;
}

ChunkContents readMrw(FileWindow& file) {
    constexpr std::string_view exifTag("\0TTW", 4);
    constexpr std::uint64_t firstChunk = 8;
    ChunkWalk walk(file, {firstChunk, std::numeric_limits<std::int64_t>::max()}, mrwChunks);
    ChunkContents contents;
    while (const std::optional<Chunk> chunk = walk.next()) {
        if (chunk->tag == exifTag) {
            contents.exif = chunk->content;
        }
    }
    return contents;
}

ChunkContents readGif(FileWindow& file) {
    return {std::nullopt, GifWalk(file).xmpPacket()};
}

} // namespace lumeo
