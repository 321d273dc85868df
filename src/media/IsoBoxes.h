#pragma once

#include "media/ByteOrder.h"
#include "media/FieldReader.h"
#include "media/FileWindow.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace lumeo {

/// The type of a box, which four characters name.
constexpr std::uint32_t fourCC(std::string_view name) {
    return numberAt<std::uint32_t>(name, 0, std::endian::big);
}

/// A box with more boxes, or an image with more items, is damaged. Tiled photos have a few hundred.
constexpr std::size_t mostBoxes = 4'096;

struct Box {
    std::uint32_t type = 0;
    FileRange content;
};

/// Walks the consecutive boxes in a range of the file.
class BoxWalk {
public:
    BoxWalk(FileWindow& file, FileRange range) : file_(&file), rest_(range) {}

    /// The next box, cut off at the end of the range. Absent after the last one and after damage.
    std::optional<Box> next();

    /// The content of the next box of a type.
    std::optional<FileRange> find(std::uint32_t type);

private:
    FileWindow* file_;
    FileRange rest_;
    std::size_t count_ = 0;
};

} // namespace lumeo
