#pragma once

#include <algorithm>
#include <string_view>

namespace lumeo {

/// The lower-case form of an ASCII letter. Any other byte stays as it is, in every locale.
constexpr char asciiLowerCased(char c) noexcept {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// True when the texts differ at most in the case of ASCII letters.
constexpr bool equalIgnoringAsciiCase(std::string_view a, std::string_view b) noexcept {
    return std::ranges::equal(a, b, {}, asciiLowerCased, asciiLowerCased);
}

} // namespace lumeo
