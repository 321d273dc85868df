#pragma once

#include "platform/FileSystem.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <span>

namespace lumeo {

/// What reading one file may cost. Whatever is spent first ends it.
struct ReadLimits {
    std::int64_t bytes = 0;
    std::chrono::nanoseconds work{}; ///< processor time of the reading thread
    std::chrono::nanoseconds wait{}; ///< time all told, for a slow disk
};

/// A file as handed to a library that may be led about by its content: every read is counted. Made and
/// used on one thread.
class BoundedFile {
public:
    BoundedFile(ReadableFile& file, ReadLimits limits);

    /// Bytes; 0 when it cannot be told.
    [[nodiscard]] std::int64_t size() const { return size_; }

    /// Reads from `offset`; 0 bytes at the end and once the limits are spent.
    FileResult<std::size_t> readAt(std::int64_t offset, std::span<std::byte> buffer);

    [[nodiscard]] bool isSpent() const;

    /// The file without these limits, for what has its own.
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
