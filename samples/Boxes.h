#pragma once

#include "samples/TinyMovies.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace lumeo::samples {

/// Numbers and boxes as the ISO base media formats (HEIC, MP4, QuickTime) store them.
inline std::string be16(std::uint64_t value) {
    return bigEndianBytes(value, 2);
}

inline std::string be32(std::uint64_t value) {
    return bigEndianBytes(value, 4);
}

inline std::string be64(std::uint64_t value) {
    return bigEndianBytes(value, 8);
}

/// A box that starts with a version and flags.
inline std::string fullBox(std::string_view type, const std::string& content, unsigned version = 0,
                           unsigned flags = 0) {
    return movieBox(type, be32(std::uint64_t{version} << 24U | flags) + content);
}

} // namespace lumeo::samples
