#include "platform/Utf8Text.h"

#include <cstdint>

#include <unicode/uchar.h>
#include <unicode/utf8.h>

namespace lumeo {
namespace {

constexpr std::size_t longestCharacter = 4;

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// The start of the character that holds the byte at `position`.
std::size_t characterStart(std::string_view text, std::size_t position) {
    std::size_t start = position;
    while (start > 0 && position - start < longestCharacter - 1 && isContinuation(text[start])) {
        --start;
    }
    return start;
}

/// The length in bytes of the white-space character at the start of `text`. 0 if `text` starts with another
/// character.
std::size_t leadingWhitespace(std::string_view text) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    const auto length = static_cast<std::int64_t>(text.size());
    std::int64_t next = 0;
    UChar32 character = 0;
    U8_NEXT(bytes, next, length, character);
    return character >= 0 && u_isUWhiteSpace(character) ? static_cast<std::size_t>(next) : 0;
}

} // namespace

std::string_view trimmingWhitespace(std::string_view text) noexcept {
    while (!text.empty()) {
        const std::size_t length = leadingWhitespace(text);
        if (length == 0) {
            break;
        }
        text.remove_prefix(length);
    }
    while (!text.empty()) {
        const std::size_t start = characterStart(text, text.size() - 1);
        if (leadingWhitespace(text.substr(start)) != text.size() - start) {
            break;
        }
        text.remove_suffix(text.size() - start);
    }
    return text;
}

std::string_view clippedToBytes(std::string_view text, std::size_t length) noexcept {
    return text.size() <= length ? text : text.substr(0, characterStart(text, length));
}

} // namespace lumeo
