#pragma once

#include "media/FileWindow.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace lumeo {

/// The bytes of a file whose header is being walked; however a walk leads about, it reads within the
/// window's bounds. Used by one thread.
class HeaderBytes {
public:
    /// `file` must outlive this object.
    explicit HeaderBytes(ReadableFile& file);

    [[nodiscard]] std::int64_t size() const noexcept { return size_; }

    /// The bytes from `offset` on, fewer than `count` where the file ends; none at a wrong offset, where
    /// the file cannot be read or too much of it has been read already.
    [[nodiscard]] std::string read(std::int64_t offset, std::size_t count);

private:
    FileWindow window_;
    std::int64_t size_;
};

/// An unsigned number of `width` bytes inside `bytes`. One that reaches over the end is 0, which in
/// the headers of all movie containers means "not set".
std::uint64_t bigEndian(std::string_view bytes, std::size_t offset, std::size_t width) noexcept;
std::uint64_t littleEndian(std::string_view bytes, std::size_t offset, std::size_t width) noexcept;

} // namespace lumeo
