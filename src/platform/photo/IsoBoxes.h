#pragma once

#include "platform/photo/ByteOrder.h"
#include "platform/photo/FileWindow.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace lumeo {

/// The type of a box, named by four characters.
constexpr std::uint32_t fourCC(std::string_view name) {
    return numberAt<std::uint32_t>(name, 0, std::endian::big);
}

/// More boxes in one box, or items in one image, are damage: tiled photos have some hundred.
constexpr std::size_t mostBoxes = 4'096;

/// Reads the fields of a box one after another. Behind its end, or the file's, all is 0 and it has failed.
class FieldReader {
public:
    FieldReader(FileWindow& file, FileRange range) : file_(&file), range_(range) {}

    /// A big-endian number of up to eight bytes; of no bytes it is 0.
    std::uint64_t number(std::size_t size);
    /// A number of four bytes.
    std::uint32_t code() { return static_cast<std::uint32_t>(number(4)); }
    void skip(std::size_t count) { take(count); }
    /// A text and the NUL behind it; what is longer than any name in a box is a failure.
    std::string text();

    [[nodiscard]] bool hasFailed() const { return hasFailed_; }
    /// What has not been read yet.
    [[nodiscard]] FileRange rest() const { return range_; }

private:
    std::optional<std::string_view> take(std::size_t count);
    void fail();

    FileWindow* file_;
    FileRange range_;
    bool hasFailed_ = false;
};

struct Box {
    std::uint32_t type = 0;
    FileRange content;
};

/// Walks the boxes that lie one behind the other in a stretch of the file.
class BoxWalk {
public:
    BoxWalk(FileWindow& file, FileRange range) : file_(&file), rest_(range) {}

    /// The next box, cut off where the stretch ends; absent behind the last one and after damage.
    std::optional<Box> next();

    /// The content of the next box of a type.
    std::optional<FileRange> find(std::uint32_t type);

private:
    FileWindow* file_;
    FileRange rest_;
    std::size_t count_ = 0;
};

} // namespace lumeo
