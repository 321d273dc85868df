#pragma once

#include "media/FileWindow.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace lumeo {

/// Reads the fields of a box one after another. Beyond the end of the box or the file, every field is 0 and
/// the reader has failed.
class FieldReader {
public:
    FieldReader(FileWindow& file, FileRange range) : file_(&file), range_(range) {}

    /// A big-endian number of up to eight bytes. With a size of 0 it is 0.
    std::uint64_t number(std::size_t size);
    /// A number of four bytes.
    std::uint32_t code() { return static_cast<std::uint32_t>(number(4)); }
    void skip(std::size_t count) { take(count); }
    /// A text and the NUL after it. Fails when the text is longer than any name in a box.
    std::string text();

    [[nodiscard]] bool hasFailed() const { return hasFailed_; }
    /// The part that has not been read yet.
    [[nodiscard]] FileRange rest() const { return range_; }

private:
    std::optional<std::string_view> take(std::size_t count);
    void fail();

    FileWindow* file_;
    FileRange range_;
    bool hasFailed_ = false;
};

} // namespace lumeo
