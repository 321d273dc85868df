#include "platform/DiskTraits.h"

#include "platform/AsciiCase.h"
#include "platform/FilePath.h"
#include "platform/Utf8Text.h"

#include <algorithm>
#include <array>

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

namespace lumeo {
namespace {

/// The next character of `text`; a negative value means an ill-formed byte. Moves `position` after it.
UChar32 nextCharacter(std::string_view text, std::size_t& position) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    auto next = static_cast<std::int64_t>(position);
    UChar32 character = 0;
    U8_NEXT(bytes, next, static_cast<std::int64_t>(text.size()), character);
    position = static_cast<std::size_t>(next);
    return character;
}

bool isAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char byte) { return static_cast<unsigned char>(byte) < 0x80U; });
}

std::size_t unitsOf(UChar32 character) {
    return character < 0 ? 1 : static_cast<std::size_t>(U16_LENGTH(character));
}

std::size_t lengthOf(std::string_view text, const DiskTraits& disk) {
    if (!disk.countsUtf16) {
        return text.size();
    }
    std::size_t units = 0;
    for (std::size_t position = 0; position < text.size();) {
        units += unitsOf(nextCharacter(text, position));
    }
    return units;
}

/// As many whole characters from the start of `text` as fit into `length`.
std::string_view clipped(std::string_view text, std::size_t length, const DiskTraits& disk) {
    if (!disk.countsUtf16) {
        return clippedToBytes(text, length);
    }
    std::size_t units = 0;
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t start = position;
        units += unitsOf(nextCharacter(text, position));
        if (units > length) {
            return text.substr(0, start);
        }
    }
    return text;
}

std::string wellFormed(std::string_view name) {
    std::string text;
    for (std::size_t position = 0; position < name.size();) {
        const std::size_t start = position;
        const bool isCharacter = nextCharacter(name, position) >= 0;
        text += isCharacter ? name.substr(start, position - start) : "_";
    }
    return text;
}

bool isRefused(char character) {
    constexpr std::string_view refused = "\"*:<>?\\|";
    const auto byte = static_cast<unsigned char>(character);
    return byte < 0x20U || byte == 0x7FU || refused.find(character) != std::string_view::npos;
}

/// Whether the name without its extensions is the name of a device.
bool namesADevice(std::string_view name) {
    constexpr std::array<std::string_view, 4> whole{"con", "prn", "aux", "nul"};
    constexpr std::array<std::string_view, 2> numbered{"com", "lpt"};
    const std::string_view stem = name.substr(0, name.find('.'));
    const auto is = [](std::string_view text) {
        return [text](std::string_view device) { return equalIgnoringAsciiCase(text, device); };
    };
    if (std::ranges::any_of(whole, is(stem))) {
        return true;
    }
    return stem.size() == 4 && stem[3] >= '1' && stem[3] <= '9' &&
           std::ranges::any_of(numbered, is(stem.substr(0, 3)));
}

std::string restricted(std::string name) {
    std::ranges::replace_if(name, isRefused, '_');
    if (namesADevice(name)) {
        name.insert(std::min(name.find('.'), name.size()), 1, '_');
    }
    return name;
}

void replaceEnd(std::string& name) {
    for (std::size_t end = name.size(); end > 0 && (name[end - 1] == '.' || name[end - 1] == ' '); --end) {
        name[end - 1] = '_';
    }
}

/// Some disks compare upper-case letters one by one, and others compare folded texts.
icu::UnicodeString folded(const icu::UnicodeString& text) {
    icu::UnicodeString upper;
    for (std::int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
        upper.append(u_toupper(text.char32At(i)));
    }
    return upper.foldCase();
}

icu::UnicodeString decomposed(const icu::UnicodeString& text) {
    UErrorCode error = U_ZERO_ERROR;
    icu::UnicodeString result = icu::Normalizer2::getNFDInstance(error)->normalize(text, error);
    return U_SUCCESS(error) ? result : text;
}

/// Disks that know composition also ignore invisible characters.
icu::UnicodeString withoutUnseen(const icu::UnicodeString& text) {
    icu::UnicodeString seen;
    for (std::int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
        const UChar32 character = text.char32At(i);
        if (!u_hasBinaryProperty(character, UCHAR_DEFAULT_IGNORABLE_CODE_POINT)) {
            seen.append(character);
        }
    }
    return seen;
}

} // namespace

std::string joinedName(std::string_view base, std::string_view ending, const DiskTraits& disk) {
    const std::size_t taken = std::min(disk.longestName, lengthOf(ending, disk));
    return std::string(clipped(base, disk.longestName - taken, disk)).append(ending);
}

std::string fittedName(std::string_view name, const DiskTraits& disk) {
    std::string fitted = disk.refusesIllFormedText ? wellFormed(name) : std::string(name);
    if (disk.restrictsNames) {
        fitted = restricted(std::move(fitted));
    }
    if (lengthOf(fitted, disk) > disk.longestName) {
        const std::string_view base = deletingPathExtension(fitted);
        const std::string_view ending = std::string_view(fitted).substr(base.size());
        fitted = lengthOf(ending, disk) < disk.longestName
                     ? joinedName(base, ending, disk)
                     : std::string(clipped(fitted, disk.longestName, disk));
    }
    if (disk.restrictsNames) {
        replaceEnd(fitted);
    }
    return fitted;
}

std::string comparableName(std::string_view text, const DiskTraits& disk) {
    if (!disk.ignoresCase && !disk.ignoresComposition) {
        return std::string(text);
    }
    if (isAscii(text)) {
        std::string result(text);
        if (disk.ignoresCase) {
            std::ranges::transform(result, result.begin(), asciiLowerCased);
        }
        return result;
    }
    icu::UnicodeString name =
        icu::UnicodeString::fromUTF8({text.data(), static_cast<std::int32_t>(text.size())});
    if (disk.ignoresComposition) {
        name = withoutUnseen(decomposed(name));
    }
    if (disk.ignoresCase) {
        name = folded(name);
    }
    std::string result;
    (disk.ignoresComposition ? decomposed(name) : name).toUTF8String(result);
    return result;
}

} // namespace lumeo
