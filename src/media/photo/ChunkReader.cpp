#include "media/photo/ChunkReader.h"

#include "media/ByteOrder.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace lumeo {

namespace {

constexpr std::uint64_t headSize = 8; ///< tag and length, in either order

struct Layout {
    std::uint64_t firstChunk = 0;
    std::size_t tagAt = 0; ///< within a chunk's head
    std::size_t lengthAt = 4;
    std::endian order = std::endian::big;
    std::uint64_t checksumSize = 0;
    bool isPadded = false; ///< to even lengths
};

Layout layoutOf(ImageKind kind) {
    switch (kind) {
    case ImageKind::png:
        return {8, 4, 0, std::endian::big, 4, false};
    case ImageKind::webp:
        return {12, 0, 4, std::endian::little, 0, true};
    default:
        return {8, 0, 4, std::endian::big, 0, false};
    }
}

FileRange behind(FileRange range, std::uint64_t count) {
    count = std::min(count, range.length);
    return {range.offset + count, range.length - count};
}

bool beginsWith(FileWindow& file, FileRange range, std::string_view bytes) {
    return range.length >= bytes.size() && file.view(range.offset, bytes.size()) == bytes;
}

/// The text of an international text chunk, whose head is a keyword, two bytes about compression and two
/// more texts, all but always empty.
std::optional<FileRange> uncompressedText(FileWindow& file, FileRange chunk, std::string_view keyword) {
    const std::string head = std::string(keyword) + std::string(5, '\0');
    return beginsWith(file, chunk, head) ? std::optional(behind(chunk, head.size())) : std::nullopt;
}

struct Chunk {
    std::string tag;
    FileRange whole;
    FileRange content;
};

void readPngChunk(FileWindow& file, const Chunk& chunk, ChunkContents& contents) {
    if (chunk.tag == "eXIf" && !contents.exif) {
        contents.exif = chunk.content;
    } else if (chunk.tag == "tEXt" || chunk.tag == "zTXt" || chunk.tag == "iTXt") {
        if (beginsWith(file, chunk.content, "Raw profile type exif") ||
            beginsWith(file, chunk.content, "Raw profile type APP1")) {
            contents.textProfile = chunk.whole;
        } else if (const auto packet = uncompressedText(file, chunk.content, "XML:com.adobe.xmp")) {
            contents.xmpPacket = packet;
        }
    }
}

void readWebpChunk(FileWindow& file, const Chunk& chunk, ChunkContents& contents) {
    constexpr std::string_view exifName("Exif\0\0", 6); // not called for, yet often there
    if (chunk.tag == "EXIF" && !contents.exif) {
        contents.exif = beginsWith(file, chunk.content, exifName) ? behind(chunk.content, exifName.size())
                                                                  : chunk.content;
    } else if (chunk.tag == "XMP ") {
        contents.xmpPacket = chunk.content;
    }
}

} // namespace

ChunkContents readChunks(FileWindow& file, ImageKind kind) {
    constexpr std::string_view mrwExif("\0TTW", 4);
    const Layout layout = layoutOf(kind);
    ChunkContents contents;
    std::uint64_t at = layout.firstChunk;
    while (const auto head = file.view(at, headSize)) {
        const std::uint64_t length = numberAt<std::uint32_t>(*head, layout.lengthAt, layout.order);
        const std::uint64_t step =
            headSize + length + layout.checksumSize + (layout.isPadded ? length % 2 : 0);
        const Chunk chunk{std::string(head->substr(layout.tagAt, 4)), {at, step}, {at + headSize, length}};
        if (kind == ImageKind::png) {
            readPngChunk(file, chunk, contents);
        } else if (kind == ImageKind::webp) {
            readWebpChunk(file, chunk, contents);
        } else if (chunk.tag == mrwExif) {
            contents.exif = chunk.content;
        }
        at += step;
    }
    return contents;
}

} // namespace lumeo
