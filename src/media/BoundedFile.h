#pragma once

#include "platform/FileSystem.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <span>

namespace lumeo {

/// How much reading one file may cost. Reading ends when any of these is spent.
struct ReadLimits {
    std::int64_t bytes = 0;
    std::chrono::nanoseconds work{}; ///< processor time of the reading thread
    std::chrono::nanoseconds wait{}; ///< elapsed time, for a slow disk
};

/// A file for a library that the file's content can mislead into reading without end: every read is counted.
/// Made and used on one thread.
class BoundedFile {
public:
    BoundedFile(ReadableFile& file, ReadLimits limits);

    /// In bytes. 0 when it is unknown.
    [[nodiscard]] std::int64_t size() const { return size_; }

    /// Reads from `offset`. Returns 0 bytes at the end of the file and when the limits are spent.
    FileResult<std::size_t> readAt(std::int64_t offset, std::span<std::byte> buffer);

    [[nodiscard]] bool isSpent() const;

    /// The file without these limits, for readers that have their own.
    [[nodiscard]] ReadableFile& whole() { return file_; }

private:
    static std::chrono::nanoseconds timeOf(clockid_t clock);

    ReadableFile& file_;
    ReadLimits limits_;
    std::int64_t size_ = 0;
    std::int64_t bytesRead_ = 0;
    std::chrono::nanoseconds workStart_;
    std::chrono::nanoseconds waitStart_;
};

} // namespace lumeo
