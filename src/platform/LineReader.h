#pragma once

#include "platform/FileSystem.h"

#include <array>
#include <optional>
#include <string>

namespace lumeo {

/// Returns the lines of a text file of any size, one after another. Used by one thread.
class LineReader {
public:
    /// Reads from the current position of `file`, which must outlive the reader.
    explicit LineReader(ReadableFile& file) : file_(file) {}

    /// The next line without its line end. Absent after the last line, or when the file cannot be read
    /// further.
    std::optional<std::string> next();

    /// True when the last line had its line end, so it cannot have been cut short.
    [[nodiscard]] bool isWhole() const noexcept { return isWhole_; }

    [[nodiscard]] const std::optional<FileError>& error() const noexcept { return error_; }

private:
    ReadableFile& file_;
    std::array<char, 65536> piece_{};
    std::string text_;
    std::size_t start_ = 0;
    bool isWhole_ = false;
    std::optional<FileError> error_;
};

} // namespace lumeo
