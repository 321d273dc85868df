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

/// A stretch of a file.
struct FileRange {
    std::uint64_t offset = 0;
    std::uint64_t length = 0;
    friend bool operator==(const FileRange&, const FileRange&) = default;
};

/// What stands behind the first `count` bytes of a stretch, which may be fewer.
constexpr FileRange behind(FileRange range, std::uint64_t count) {
    count = count < range.length ? count : range.length;
    return {range.offset + count, range.length - count};
}

/// Small reads from anywhere in a file, through two buffers: one holds the beginning, where most of
/// what is asked for lies, one the place that was read last. Used by one thread.
///
/// Files are read and not mapped, since a failing card would end the program with a signal. All that
/// one window ever reads or shows is bounded, and so is its life, so that no file takes long, however it
/// leads about and however slow its disk is.
class FileWindow {
public:
    static constexpr std::size_t headSize = 16 * 1024;
    static constexpr std::size_t largestView = 4 * 1024 * 1024;
    static constexpr std::size_t readBudget = 32 * 1024 * 1024;
    static constexpr std::size_t viewBudget = 64 * 1024 * 1024;
    static constexpr std::chrono::seconds longestLife{5};

    /// `file` must outlive the window. Once a stop is requested, nothing more is read.
    explicit FileWindow(ReadableFile& file, std::stop_token stop = {});

    /// Exactly `count` bytes from `offset`, valid until the next call; absent where the file ends or
    /// cannot be read, above `largestView`, and when a budget is spent.
    std::optional<std::string_view> view(std::uint64_t offset, std::size_t count);

    /// A copy of the bytes from `offset` on, fewer than `count` where the file ends; none where view() gives
    /// none.
    std::string read(std::uint64_t offset, std::size_t count);

    /// Reads up to `count` bytes straight into `target`, within the budget; gives how many came.
    std::size_t copy(std::uint64_t offset, char* target, std::size_t count);

    /// The file's length in bytes; 0 when it cannot be told.
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
