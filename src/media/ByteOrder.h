#pragma once

#include <bit>
#include <concepts>
#include <cstddef>
#include <string_view>

namespace lumeo {

/// The unsigned number whose bytes stand at `at`, which must lie within `bytes`.
template<std::unsigned_integral Number>
constexpr Number numberAt(std::string_view bytes, std::size_t at, std::endian order) {
    Number value = 0;
    for (std::size_t i = 0; i < sizeof(Number); ++i) {
        const std::size_t place = order == std::endian::little ? sizeof(Number) - 1 - i : i;
        value = static_cast<Number>((value << 8U) | static_cast<unsigned char>(bytes[at + place]));
    }
    return value;
}

} // namespace lumeo
