#pragma once

#include "platform/FileSystem.h"

#include <array>
#include <optional>
#include <string>

namespace lumeo {

/// Gives the lines of a text file of any size, one after the other. Used by one thread.
class LineReader {
public:
    /// Reads from where `file` stands; it must outlive the reader.
    explicit LineReader(ReadableFile& file) : file_(file) {}

    /// The next line without its end; absent behind the last, or when the file cannot be read any further.
    std::optional<std::string> next();

    /// True when the line that came last had its end, so that it cannot have been cut short.
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
