#pragma once

#include "platform/FileSystem.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

namespace lumeo {

/// A range of bytes in a file.
struct FileRange {
    std::uint64_t offset = 0;
    std::uint64_t length = 0;
    friend bool operator==(const FileRange&, const FileRange&) = default;
};

/// The rest of a range after its first `count` bytes. If the range is shorter, nothing is left.
constexpr FileRange behind(FileRange range, std::uint64_t count) {
    count = count < range.length ? count : range.length;
    return {range.offset + count, range.length - count};
}

/// Small reads from anywhere in a file, through two buffers. One holds the start of the file, where most of
/// the wanted data is. The other holds the last place that was read. Used by one thread.
///
/// Files are read and not mapped, because a failing card would end the program with a signal. The bytes that
/// one window reads or shows are bounded, and so is its lifetime. So no file takes long, wherever its offsets
/// lead and however slow its disk is.
class FileWindow {
public:
    static constexpr std::size_t headSize = 16 * 1024;
    static constexpr std::size_t largestView = 4 * 1024 * 1024;
    static constexpr std::size_t readBudget = 32 * 1024 * 1024;
    static constexpr std::size_t viewBudget = 64 * 1024 * 1024;
    static constexpr std::chrono::seconds longestLife{5};

    /// `file` must outlive the window. Once a stop is requested, nothing more is read.
    explicit FileWindow(ReadableFile& file, std::stop_token stop = {});

    /// Exactly `count` bytes from `offset`, valid until the next call. Absent when the file ends earlier or
    /// cannot be read, when `count` is above `largestView`, and when a budget is spent.
    std::optional<std::string_view> view(std::uint64_t offset, std::size_t count);

    /// A copy of the bytes from `offset`. It has fewer than `count` bytes at the end of the file. Empty when
    /// view() would give nothing.
    std::string read(std::uint64_t offset, std::size_t count);

    /// Reads up to `count` bytes directly into `target`, within the budget. Returns the number of bytes read.
    std::size_t copy(std::uint64_t offset, char* target, std::size_t count);

    /// The file's length in bytes. 0 when it is unknown.
    std::uint64_t size();

private:
    struct Buffer {
        std::unique_ptr<char[]> bytes;
        std::size_t capacity = 0;
        std::uint64_t offset = 0;
        std::size_t length = 0;

        [[nodiscard]] std::optional<std::string_view> view(std::uint64_t from, std::size_t count) const;
    };

    [[nodiscard]] bool isOver() const;
    void load(Buffer& buffer, std::uint64_t offset, std::size_t count);

    ReadableFile& file_;
    Buffer head_;
    Buffer recent_;
    std::stop_token stop_;
    std::chrono::steady_clock::time_point end_ = std::chrono::steady_clock::now() + longestLife;
    std::size_t budget_ = readBudget;
    std::size_t viewBudget_ = viewBudget;
    std::optional<std::uint64_t> size_;
};

} // namespace lumeo
