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

} // namespace lumeo
