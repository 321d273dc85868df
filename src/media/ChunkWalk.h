#pragma once

#include "media/FileWindow.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace lumeo {

/// How a family of file formats stores tagged chunks. A chunk's head always has a tag and a length of four
/// bytes each.
struct ChunkLayout {
    std::size_t tagAt = 0; ///< within the head
    std::size_t lengthAt = 4;
    std::endian order = std::endian::big;
    std::uint64_t checksumSize = 0;
    bool isPadded = false; ///< to even lengths
};

inline constexpr ChunkLayout pngChunks{.tagAt = 4, .lengthAt = 0, .checksumSize = 4};
inline constexpr ChunkLayout riffChunks{.order = std::endian::little, .isPadded = true}; ///< WebP, AVI
inline constexpr ChunkLayout mrwChunks{};

struct Chunk {
    std::string tag;
    FileRange content;
};

/// Walks the consecutive chunks in a range of the file.
class ChunkWalk {
public:
    ChunkWalk(FileWindow& file, FileRange range, const ChunkLayout& layout)
        : file_(&file), rest_(range), layout_(layout) {}

    /// The next chunk, cut off at the end of the range. Absent after the last one.
    std::optional<Chunk> next();

private:
    FileWindow* file_;
    FileRange rest_;
    ChunkLayout layout_;
};

} // namespace lumeo
