#pragma once

#include <cstddef>
#include <string_view>

namespace lumeo {

/// `text` without the white space and line breaks at its ends, Unicode's included. Bytes that are not
/// UTF-8 count as text. The view lies within `text`.
std::string_view trimmingWhitespace(std::string_view text) noexcept;

/// In bytes: what the usual file systems take as the name of a file or folder.
inline constexpr std::size_t longestFileName = 255;

/// As many whole characters of `text`, from its start, as fit into `length` bytes.
std::string_view clippedToBytes(std::string_view text, std::size_t length) noexcept;

} // namespace lumeo
