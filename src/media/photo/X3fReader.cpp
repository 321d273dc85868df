#include "media/photo/X3fReader.h"

#include "media/ByteOrder.h"
#include "media/photo/ExifValues.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <string_view>

namespace lumeo {

namespace {

constexpr std::uint32_t mostSections = 100;
constexpr std::uint32_t mostProperties = 1'000;
constexpr std::size_t longestPropertyText = 256; ///< characters

std::uint32_t number32(std::string_view bytes, std::size_t at) {
    return numberAt<std::uint32_t>(bytes, at, std::endian::little);
}

/// The text at a byte offset of the characters, up to its NUL. Camera facts are plain ASCII. Any other
/// character becomes a question mark.
std::string textAt(std::string_view characters, std::size_t at) {
    std::string text;
    while (text.size() < longestPropertyText && at + 2 <= characters.size()) {
        const auto character = numberAt<std::uint16_t>(characters, at, std::endian::little);
        if (character == 0) {
            break;
        }
        text += character < 0x80 ? static_cast<char>(character) : '?';
        at += 2;
    }
    return text;
}

/// Seconds since 1970 on the camera's own clock, stored as text.
std::optional<Instant> dateOf(std::string_view text) {
    std::uint32_t value = 0;
    const bool isNumber = std::from_chars(text.data(), text.data() + text.size(), value).ec == std::errc{};
    return isNumber ? photoDate(value) : std::nullopt;
}

void readProperties(FileWindow& file, FileRange section, PhotoProperties& properties) {
    const auto header = file.view(section.offset, 24);
    if (!header || !header->starts_with("SECp") || number32(*header, 12) != 0) {
        return;
    }
    const std::size_t count = number32(*header, 8);
    if (count > mostProperties) {
        return;
    }
    const auto length =
        static_cast<std::size_t>(std::min<std::uint64_t>(section.length, FileWindow::largestView));
    const auto bytes = file.view(section.offset, length);
    if (!bytes || length < 24 + count * 8) {
        return;
    }
    const std::string_view characters = bytes->substr(24 + count * 8);
    for (std::size_t i = 0; i < count; ++i) {
        const std::string name = textAt(characters, std::size_t{number32(*bytes, 24 + i * 8)} * 2);
        const std::string value = textAt(characters, std::size_t{number32(*bytes, 28 + i * 8)} * 2);
        if (name == "TIME") {
            properties.exif.dateTimeOriginal = dateOf(value);
        } else if (name == "CAMMANUF") {
            properties.tiff.make = value;
        } else if (name == "CAMMODEL") {
            properties.tiff.model = value;
        }
    }
}

/// An image section whose pixels are a JPEG.
std::optional<FileRange> jpegOf(FileWindow& file, FileRange section) {
    constexpr std::uint32_t headerSize = 28;
    constexpr std::uint32_t jpegFormat = 18;
    const auto header = file.view(section.offset, headerSize);
    if (!header || !header->starts_with("SECi") || number32(*header, 12) != jpegFormat ||
        section.length <= headerSize) {
        return std::nullopt;
    }
    return FileRange{section.offset + headerSize, section.length - headerSize};
}

void readSections(FileWindow& file, std::uint64_t directory, X3fContents& contents) {
    const auto header = file.view(directory, 12);
    if (!header || !header->starts_with("SECd")) {
        return;
    }
    const std::uint32_t sections = std::min(number32(*header, 8), mostSections);
    bool hasProperties = false;
    for (std::uint32_t i = 0; i < sections; ++i) {
        const auto entry = file.view(directory + 12 + std::uint64_t{i} * 12, 12);
        if (!entry) {
            return;
        }
        const FileRange section{number32(*entry, 0), number32(*entry, 4)};
        const std::string type(entry->substr(8));
        if (type == "PROP" && !hasProperties) {
            readProperties(file, section, contents.properties);
            hasProperties = true;
        } else if (type.starts_with("IMA") && !contents.embeddedJpeg) {
            contents.embeddedJpeg = jpegOf(file, section);
        }
    }
}

} // namespace

X3fContents readX3f(FileWindow& file) {
    X3fContents contents;
    const auto header = file.view(0, 36);
    if (header && number32(*header, 28) != 0 && number32(*header, 32) != 0) {
        contents.properties.pixelWidth = number32(*header, 28);
        contents.properties.pixelHeight = number32(*header, 32);
    }
    // The last four bytes tell the place of the list of sections.
    const std::uint64_t size = file.size();
    if (const auto pointer = size < 4 ? std::nullopt : file.view(size - 4, 4)) {
        readSections(file, number32(*pointer, 0), contents);
    }
    return contents;
}

} // namespace lumeo
