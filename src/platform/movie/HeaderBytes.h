#pragma once

#include "platform/FileSystem.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace lumeo {

/// The bytes of a file whose header is being walked. However often and wherever a walk reads, only a
/// few megabytes ever come from the disk. Used by one thread.
class HeaderBytes {
public:
    /// `file` must outlive this object.
    explicit HeaderBytes(ReadableFile& file);

    [[nodiscard]] std::int64_t size() const noexcept { return size_; }

    /// The bytes from `offset` on; fewer than `count` where the file ends, cannot be read, or has been
    /// read too much already. A wrong offset gives none.
    [[nodiscard]] std::string read(std::int64_t offset, std::size_t count);

private:
    bool loadBlock(std::int64_t blockStart);

    ReadableFile& file_;
    std::int64_t size_ = 0;
    std::int64_t blockStart_ = -1;
    std::string block_;
    int blocksLeft_;
};

/// An unsigned number of `width` bytes inside `bytes`. One that reaches over the end is 0, which in
/// the headers of all movie containers means "not set".
std::uint64_t bigEndian(std::string_view bytes, std::size_t offset, std::size_t width) noexcept;
std::uint64_t littleEndian(std::string_view bytes, std::size_t offset, std::size_t width) noexcept;

} // namespace lumeo
