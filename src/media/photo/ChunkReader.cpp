#include "media/photo/ChunkReader.h"

#include "media/ChunkWalk.h"

#include <algorithm>
#include <limits>
#include <string>
#include <string_view>

namespace lumeo {

namespace {

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

void readPngChunk(FileWindow& file, const Chunk& chunk, ChunkContents& contents) {
    if (chunk.tag == "eXIf" && !contents.exif) {
        contents.exif = chunk.content;
    } else if (chunk.tag == "tEXt" || chunk.tag == "zTXt" || chunk.tag == "iTXt") {
        if (beginsWith(file, chunk.content, "Raw profile type exif") ||
            beginsWith(file, chunk.content, "Raw profile type APP1")) {
            contents.textProfile = {chunk.content.offset - 8, chunk.content.length + 12};
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
    const std::uint64_t firstChunk = kind == ImageKind::webp ? 12 : 8;
    ChunkWalk walk(file, {firstChunk, std::numeric_limits<std::int64_t>::max()},
                   kind == ImageKind::png    ? pngChunks
                   : kind == ImageKind::webp ? riffChunks
                                             : mrwChunks);
    ChunkContents contents;
    while (const std::optional<Chunk> chunk = walk.next()) {
        if (kind == ImageKind::png) {
            readPngChunk(file, *chunk, contents);
        } else if (kind == ImageKind::webp) {
            readWebpChunk(file, *chunk, contents);
        } else if (chunk->tag == mrwExif) {
            contents.exif = chunk->content;
        }
    }
    return contents;
}

} // namespace lumeo
