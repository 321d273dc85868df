#include "media/photo/TiffStructure.h"

#include "media/photo/ExifValues.h"

#include <algorithm>
#include <array>
#include <span>

namespace lumeo {

namespace {

enum Type : std::uint16_t {
    byteType = 1,
    asciiType = 2,
    shortType = 3,
    longType = 4,
    rationalType = 5,
    undefinedType = 7,
    signedLongType = 9,
    signedRationalType = 10,
    ifdType = 13,
    long8Type = 16,
    ifd8Type = 18,
    utf8Type = 129,
};

constexpr std::uint64_t mostEntries = 1'000; ///< the largest directories of cameras have some 300
constexpr std::size_t longestTagText = 1'024;

std::size_t sizeOfType(std::uint16_t type) {
    constexpr std::array<std::uint8_t, 19> sizes{0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4, 0, 0, 8, 8, 8};
    if (type == utf8Type) {
        return 1;
    }
    return type < sizes.size() ? sizes[type] : 0;
}

} // namespace

std::optional<TiffStructure> TiffStructure::open(FileWindow& file, FileRange range) {
    TiffStructure tiff(file, range);
    const auto header = tiff.view(0, 8);
    if (!header || !(header->starts_with("II") || header->starts_with("MM"))) {
        return std::nullopt;
    }
    tiff.order_ = header->front() == 'I' ? std::endian::little : std::endian::big;
    tiff.magic_ = tiff.number<std::uint16_t>(*header, 2);
    // 42 is TIFF and 43 its 64-bit form. The others belong to camera makers.
    constexpr std::array<std::uint16_t, 5> magics{42, 43, 0x55, 0x4F52, 0x5352};
    if (std::find(magics.begin(), magics.end(), tiff.magic_) == magics.end()) {
        return std::nullopt;
    }
    if (!tiff.isBig()) {
        tiff.firstDirectory_ = tiff.number<std::uint32_t>(*header, 4);
        return tiff;
    }
    const auto bigHeader = tiff.view(0, 16);
    if (!bigHeader) {
        return std::nullopt;
    }
    tiff.firstDirectory_ = tiff.number<std::uint64_t>(*bigHeader, 8);
    return tiff;
}

std::optional<std::string_view> TiffStructure::view(std::uint64_t offset, std::size_t count) {
    if (offset > range_.length || range_.length - offset < count) {
        return std::nullopt;
    }
    return file_->view(range_.offset + offset, count);
}

std::string_view TiffStructure::viewUpTo(std::uint64_t offset, std::uint64_t count) {
    if (const auto whole = view(offset, static_cast<std::size_t>(count))) {
        return *whole;
    }
    const std::uint64_t end = std::min(range_.length, behind({0, file_->size()}, range_.offset).length);
    return view(offset, static_cast<std::size_t>(end - std::min(offset, end))).value_or(std::string_view());
}

TiffDirectory TiffStructure::directory(std::uint64_t offset, std::span<const std::uint16_t> wanted) {
    TiffDirectory directory;
    const std::size_t countSize = isBig() ? 8 : 2;
    const std::size_t entrySize = isBig() ? 20 : 12;
    const std::size_t inlineSize = isBig() ? 8 : 4;
    const auto countBytes = offset == 0 ? std::nullopt : view(offset, countSize);
    if (!countBytes) {
        return directory;
    }
    const std::uint64_t count =
        isBig() ? number<std::uint64_t>(*countBytes, 0) : number<std::uint16_t>(*countBytes, 0);
    const std::uint64_t entriesAt = offset + countSize;
    const std::string_view entries = viewUpTo(entriesAt, std::min(count, mostEntries) * entrySize);
    for (std::size_t at = 0; at + entrySize <= entries.size(); at += entrySize) {
        const std::string_view bytes = entries.substr(at, entrySize);
        TiffEntry entry{number<std::uint16_t>(bytes, 0), number<std::uint16_t>(bytes, 2), word(bytes, 4), 0};
        if (std::find(wanted.begin(), wanted.end(), entry.tag) == wanted.end()) {
            continue;
        }
        const std::size_t unit = sizeOfType(entry.type);
        if (unit == 0 || entry.count > range_.length / unit) {
            continue;
        }
        entry.valueAt = entry.count * unit <= inlineSize ? entriesAt + at + entrySize - inlineSize
                                                         : word(bytes, entrySize - inlineSize);
        directory.add(entry);
    }
    return directory;
}

std::optional<std::string> TiffStructure::text(const TiffEntry* entry) {
    if (entry == nullptr || (entry->type != asciiType && entry->type != utf8Type)) {
        return std::nullopt;
    }
    const auto bytes = view(entry->valueAt, std::min<std::uint64_t>(entry->count, longestTagText));
    if (!bytes) {
        return std::nullopt;
    }
    return std::string(bytes->substr(0, bytes->find('\0')));
}

std::optional<std::uint64_t> TiffStructure::integer(const TiffEntry* entry, std::size_t index) {
    if (entry == nullptr || index >= entry->count) {
        return std::nullopt;
    }
    const std::size_t unit = sizeOfType(entry->type);
    const auto bytes = view(entry->valueAt + index * unit, unit);
    if (!bytes) {
        return std::nullopt;
    }
    switch (entry->type) {
    case shortType:
        return number<std::uint16_t>(*bytes, 0);
    case longType:
    case signedLongType: // some programs write offsets with this type
    case ifdType:
        return number<std::uint32_t>(*bytes, 0);
    case long8Type:
    case ifd8Type:
        return number<std::uint64_t>(*bytes, 0);
    default:
        return std::nullopt;
    }
}

std::optional<double> TiffStructure::degrees(const TiffEntry* entry) {
    std::array<ExifFraction, 3> parts;
    if (entry == nullptr || (entry->type != rationalType && entry->type != signedRationalType) ||
        entry->count > parts.size()) {
        return std::nullopt;
    }
    const auto count = static_cast<std::size_t>(entry->count);
    const auto bytes = view(entry->valueAt, count * 8);
    if (!bytes) {
        return std::nullopt;
    }
    // Some phones store signed fractions, although the sign of a coordinate comes from its reference.
    const auto magnitude = [entry](std::uint32_t part) {
        const bool isNegative = entry->type == signedRationalType && part >> 31U != 0;
        return isNegative ? 0 - part : part;
    };
    for (std::size_t i = 0; i < count; ++i) {
        parts[i] = {magnitude(number<std::uint32_t>(*bytes, i * 8)),
                    magnitude(number<std::uint32_t>(*bytes, i * 8 + 4))};
    }
    return decimalDegrees(std::span(parts).first(count));
}

std::optional<FileRange> TiffStructure::bytes(const TiffEntry* entry) const {
    if (entry == nullptr || (entry->type != byteType && entry->type != undefinedType)) {
        return std::nullopt;
    }
    if (entry->valueAt > range_.length || range_.length - entry->valueAt < entry->count) {
        return std::nullopt;
    }
    return FileRange{range_.offset + entry->valueAt, entry->count};
}

} // namespace lumeo
