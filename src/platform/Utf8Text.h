#pragma once

#include <cstddef>
#include <string_view>

namespace lumeo {

/// `text` without white space and line breaks at its ends, including Unicode's. Bytes that are not UTF-8
/// count as text. The view lies within `text`.
std::string_view trimmingWhitespace(std::string_view text) noexcept;

/// The length in bytes that the usual file systems allow for the name of a file or folder.
inline constexpr std::size_t longestFileName = 255;

/// As many whole characters from the start of `text` as fit into `length` bytes.
std::string_view clippedToBytes(std::string_view text, std::size_t length) noexcept;

} // namespace lumeo
