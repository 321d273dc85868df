#pragma once

#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace lumeo {

/// The unsigned number that starts at `at`. It must lie within `bytes`.
template<std::unsigned_integral Number>
constexpr Number numberAt(std::string_view bytes, std::size_t at, std::endian order) {
    Number value = 0;
    for (std::size_t i = 0; i < sizeof(Number); ++i) {
        const std::size_t place = order == std::endian::little ? sizeof(Number) - 1 - i : i;
        value = static_cast<Number>((value << 8U) | static_cast<unsigned char>(bytes[at + place]));
    }
    return value;
}

/// A big-endian unsigned number of `width` bytes. A number that goes beyond the end is 0, because 0 means
/// "not set" in the headers of all movie containers.
constexpr std::uint64_t bigEndian(std::string_view bytes, std::size_t at, std::size_t width) {
    if (at > bytes.size() || width > bytes.size() - at) {
        return 0;
    }
    std::uint64_t number = 0;
    for (const char byte : bytes.substr(at, width)) {
        number = number << 8U | static_cast<unsigned char>(byte);
    }
    return number;
}

/// The same for a little-endian number.
constexpr std::uint64_t littleEndian(std::string_view bytes, std::size_t at, std::size_t width) {
    if (at > bytes.size() || width > bytes.size() - at) {
        return 0;
    }
    std::uint64_t number = 0;
    for (std::size_t index = width; index-- > 0;) {
        number = number << 8U | static_cast<unsigned char>(bytes[at + index]);
    }
    return number;
}

} // namespace lumeo
