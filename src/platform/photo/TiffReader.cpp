#include "platform/photo/TiffReader.h"

#include "platform/photo/ByteOrder.h"

#include <algorithm>
#include <array>
#include <bit>
#include <span>
#include <vector>

namespace lumeo {

namespace {

enum Tag : std::uint16_t {
    gpsLatitudeRef = 0x0001,
    gpsLatitude = 0x0002,
    gpsLongitudeRef = 0x0003,
    gpsLongitude = 0x0004,
    sensorTopBorder = 0x0004, ///< these four in the first directory of one RAW format only
    sensorLeftBorder = 0x0005,
    sensorBottomBorder = 0x0006,
    sensorRightBorder = 0x0007,
    jpgFromRaw = 0x002E,
    newSubfileType = 0x00FE,
    imageWidth = 0x0100,
    imageLength = 0x0101,
    make = 0x010F,
    model = 0x0110,
    dateTime = 0x0132,
    subIfds = 0x014A,
    xmpPacket = 0x02BC,
    exifIfd = 0x8769,
    gpsIfd = 0x8825,
    dateTimeOriginal = 0x9003,
    dateTimeDigitized = 0x9004,
    pixelXDimension = 0xA002,
    pixelYDimension = 0xA003,
    lensModel = 0xA434,
};

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

constexpr std::uint64_t mostEntries = 1'000; ///< the richest directories of cameras hold some 300
constexpr std::size_t mostSubdirectories = 16;
constexpr std::size_t longestText = 1'024;

std::size_t sizeOfType(std::uint16_t type) {
    constexpr std::array<std::uint8_t, 19> sizes{0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4, 0, 0, 8, 8, 8};
    if (type == utf8Type) {
        return 1;
    }
    return type < sizes.size() ? sizes[type] : 0;
}

struct Entry {
    std::uint16_t tag = 0;
    std::uint16_t type = 0;
    std::uint64_t count = 0;
    std::uint64_t valueAt = 0; ///< within the structure, whether in the entry or elsewhere
};

/// The wanted entries of one directory.
class Directory {
public:
    void add(const Entry& entry) { entries_.push_back(entry); }

    [[nodiscard]] const Entry* find(std::uint16_t tag) const {
        const auto found = std::find_if(entries_.begin(), entries_.end(),
                                        [tag](const Entry& entry) { return entry.tag == tag; });
        return found == entries_.end() ? nullptr : &*found;
    }

private:
    std::vector<Entry> entries_;
};

/// Reads directories and values by offsets that count from the structure's first byte.
class TiffStructure {
public:
    static std::optional<TiffStructure> open(FileWindow& file, FileRange range);

    [[nodiscard]] std::uint64_t firstDirectory() const { return firstDirectory_; }
    [[nodiscard]] bool hasSensorBorders() const { return magic_ == 0x55; }

    Directory directory(std::uint64_t offset, std::span<const std::uint16_t> wanted);

    std::optional<std::string> text(const Entry* entry);
    std::optional<std::uint64_t> integer(const Entry* entry, std::size_t index = 0);
    std::optional<double> degrees(const Entry* entry);

    /// Where the value's bytes stand in the file.
    [[nodiscard]] std::optional<FileRange> bytes(const Entry* entry) const;

private:
    TiffStructure(FileWindow& file, FileRange range) : file_(&file), range_(range) {}

    std::optional<std::string_view> view(std::uint64_t offset, std::size_t count);
    [[nodiscard]] bool isBig() const { return magic_ == 43; }
    template<class Number>
    [[nodiscard]] Number number(std::string_view bytes, std::size_t at) const {
        return numberAt<Number>(bytes, at, order_);
    }
    /// An offset or count, of the width that the structure uses.
    [[nodiscard]] std::uint64_t word(std::string_view bytes, std::size_t at) const {
        return isBig() ? number<std::uint64_t>(bytes, at) : number<std::uint32_t>(bytes, at);
    }

    FileWindow* file_;
    FileRange range_;
    std::endian order_ = std::endian::little;
    std::uint16_t magic_ = 0;
    std::uint64_t firstDirectory_ = 0;
};

std::optional<TiffStructure> TiffStructure::open(FileWindow& file, FileRange range) {
    TiffStructure tiff(file, range);
    const auto header = tiff.view(0, 8);
    if (!header || !(header->starts_with("II") || header->starts_with("MM"))) {
        return std::nullopt;
    }
    tiff.order_ = header->front() == 'I' ? std::endian::little : std::endian::big;
    tiff.magic_ = tiff.number<std::uint16_t>(*header, 2);
    // 42 is TIFF and 43 its 64-bit form; the others are camera makers' own.
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

Directory TiffStructure::directory(std::uint64_t offset, std::span<const std::uint16_t> wanted) {
    Directory directory;
    const std::size_t countSize = isBig() ? 8 : 2;
    const std::size_t entrySize = isBig() ? 20 : 12;
    const std::size_t inlineSize = isBig() ? 8 : 4;
    const auto countBytes = offset == 0 ? std::nullopt : view(offset, countSize);
    if (!countBytes) {
        return directory;
    }
    const std::uint64_t count =
        isBig() ? number<std::uint64_t>(*countBytes, 0) : number<std::uint16_t>(*countBytes, 0);
    for (std::uint64_t i = 0; i < std::min(count, mostEntries); ++i) {
        const std::uint64_t entryAt = offset + countSize + i * entrySize;
        const auto bytes = view(entryAt, entrySize);
        if (!bytes) {
            break;
        }
        Entry entry{number<std::uint16_t>(*bytes, 0), number<std::uint16_t>(*bytes, 2), word(*bytes, 4), 0};
        if (std::find(wanted.begin(), wanted.end(), entry.tag) == wanted.end()) {
            continue;
        }
        const std::size_t unit = sizeOfType(entry.type);
        if (unit == 0 || entry.count > range_.length / unit) {
            continue;
        }
        entry.valueAt = entry.count * unit <= inlineSize ? entryAt + entrySize - inlineSize
                                                         : word(*bytes, entrySize - inlineSize);
        directory.add(entry);
    }
    return directory;
}

std::optional<std::string> TiffStructure::text(const Entry* entry) {
    if (entry == nullptr || (entry->type != asciiType && entry->type != utf8Type)) {
        return std::nullopt;
    }
    const auto bytes = view(entry->valueAt, std::min<std::uint64_t>(entry->count, longestText));
    if (!bytes) {
        return std::nullopt;
    }
    return std::string(bytes->substr(0, bytes->find('\0')));
}

std::optional<std::uint64_t> TiffStructure::integer(const Entry* entry, std::size_t index) {
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
    case ifdType:
        return number<std::uint32_t>(*bytes, 0);
    case long8Type:
    case ifd8Type:
        return number<std::uint64_t>(*bytes, 0);
    default:
        return std::nullopt;
    }
}

std::optional<double> TiffStructure::degrees(const Entry* entry) {
    // Some phones sign their fractions, though a coordinate's sign is told by its reference.
    if (entry == nullptr || (entry->type != rationalType && entry->type != signedRationalType) ||
        entry->count == 0 || entry->count > 3) {
        return std::nullopt;
    }
    const auto parts = static_cast<std::size_t>(entry->count);
    const auto bytes = view(entry->valueAt, parts * 8);
    if (!bytes) {
        return std::nullopt;
    }
    double degrees = 0;
    double unit = 1;
    for (std::size_t i = 0; i < parts; ++i, unit /= 60) {
        const auto numerator = number<std::uint32_t>(*bytes, i * 8);
        const auto denominator = number<std::uint32_t>(*bytes, i * 8 + 4);
        if (denominator == 0) {
            return std::nullopt;
        }
        degrees += unit * numerator / denominator;
    }
    return degrees;
}

std::optional<FileRange> TiffStructure::bytes(const Entry* entry) const {
    if (entry == nullptr || (entry->type != byteType && entry->type != undefinedType)) {
        return std::nullopt;
    }
    if (entry->valueAt > range_.length || range_.length - entry->valueAt < entry->count) {
        return std::nullopt;
    }
    return FileRange{range_.offset + entry->valueAt, entry->count};
}

/// A count of pixels that an image may have.
std::optional<std::int64_t> pixels(std::optional<std::uint64_t> value) {
    constexpr std::uint64_t most = 0xFFFFFFFF;
    return value && *value > 0 && *value <= most ? std::optional(static_cast<std::int64_t>(*value))
                                                 : std::nullopt;
}

struct ImageSize {
    std::int64_t width = 0;
    std::int64_t height = 0;
    bool isReduced = false; ///< a preview of another image
};

std::optional<ImageSize> imageSize(TiffStructure& tiff, const Directory& directory) {
    const auto width = pixels(tiff.integer(directory.find(imageWidth)));
    const auto height = pixels(tiff.integer(directory.find(imageLength)));
    if (!width || !height) {
        return std::nullopt;
    }
    const bool isReduced = (tiff.integer(directory.find(newSubfileType)).value_or(0) & 1U) != 0;
    return ImageSize{*width, *height, isReduced};
}

std::optional<ImageSize> sensorSize(TiffStructure& tiff, const Directory& first) {
    const auto top = tiff.integer(first.find(sensorTopBorder));
    const auto left = tiff.integer(first.find(sensorLeftBorder));
    const auto bottom = tiff.integer(first.find(sensorBottomBorder));
    const auto right = tiff.integer(first.find(sensorRightBorder));
    if (!top || !left || !bottom || !right || *bottom <= *top || *right <= *left) {
        return std::nullopt;
    }
    return ImageSize{static_cast<std::int64_t>(*right - *left), static_cast<std::int64_t>(*bottom - *top),
                     false};
}

/// The main image's size: of the first directory unless that is a preview, as in many RAW files; then
/// of the largest directory below it that is none.
std::optional<ImageSize> mainImageSize(TiffStructure& tiff, const Directory& first) {
    if (tiff.hasSensorBorders()) {
        return sensorSize(tiff, first);
    }
    std::optional<ImageSize> best = imageSize(tiff, first);
    if (best && !best->isReduced) {
        return best;
    }
    const Entry* const subdirectories = first.find(subIfds);
    for (std::size_t i = 0; i < mostSubdirectories; ++i) {
        const auto offset = tiff.integer(subdirectories, i);
        if (!offset) {
            break;
        }
        constexpr std::array<std::uint16_t, 3> wanted{newSubfileType, imageWidth, imageLength};
        const auto size = imageSize(tiff, tiff.directory(*offset, wanted));
        if (size && !size->isReduced && (!best || best->isReduced || size->width > best->width)) {
            best = size;
        }
    }
    return best;
}

/// Fills what `exif` lacks.
void readExif(TiffStructure& tiff, const Directory& directory, PhotoProperties::Exif& exif) {
    const auto fill = [&](std::optional<std::string>& fact, std::uint16_t tag) {
        if (!fact) {
            fact = tiff.text(directory.find(tag));
        }
    };
    fill(exif.dateTimeOriginal, dateTimeOriginal);
    fill(exif.dateTimeDigitized, dateTimeDigitized);
    fill(exif.lensModel, lensModel);
    if (!exif.pixelXDimension || !exif.pixelYDimension) {
        exif.pixelXDimension = pixels(tiff.integer(directory.find(pixelXDimension)));
        exif.pixelYDimension = pixels(tiff.integer(directory.find(pixelYDimension)));
    }
}

void readGps(TiffStructure& tiff, const Directory& directory, PhotoProperties::Gps& gps) {
    gps.latitude = tiff.degrees(directory.find(gpsLatitude));
    gps.latitudeRef = tiff.text(directory.find(gpsLatitudeRef));
    gps.longitude = tiff.degrees(directory.find(gpsLongitude));
    gps.longitudeRef = tiff.text(directory.find(gpsLongitudeRef));
}

constexpr std::array<std::uint16_t, 5> exifTags{dateTimeOriginal, dateTimeDigitized, pixelXDimension,
                                                pixelYDimension, lensModel};
constexpr std::array<std::uint16_t, 4> gpsTags{gpsLatitudeRef, gpsLatitude, gpsLongitudeRef, gpsLongitude};
constexpr std::array<std::uint16_t, 20> imageTags{sensorTopBorder,
                                                  sensorLeftBorder,
                                                  sensorBottomBorder,
                                                  sensorRightBorder,
                                                  jpgFromRaw,
                                                  newSubfileType,
                                                  imageWidth,
                                                  imageLength,
                                                  make,
                                                  model,
                                                  dateTime,
                                                  subIfds,
                                                  xmpPacket,
                                                  exifIfd,
                                                  gpsIfd,
                                                  dateTimeOriginal,
                                                  dateTimeDigitized,
                                                  pixelXDimension,
                                                  pixelYDimension,
                                                  lensModel};

void readImage(TiffStructure& tiff, TiffContents& contents) {
    PhotoProperties& properties = contents.properties;
    const Directory first = tiff.directory(tiff.firstDirectory(), imageTags);
    properties.tiff = {tiff.text(first.find(dateTime)), tiff.text(first.find(make)),
                       tiff.text(first.find(model))};
    if (const auto offset = tiff.integer(first.find(exifIfd))) {
        readExif(tiff, tiff.directory(*offset, exifTags), properties.exif);
    }
    // Some RAW files have their dates here, following TIFF/EP.
    readExif(tiff, first, properties.exif);
    if (const auto offset = tiff.integer(first.find(gpsIfd))) {
        readGps(tiff, tiff.directory(*offset, gpsTags), properties.gps);
    }
    if (const auto size = mainImageSize(tiff, first)) {
        properties.pixelWidth = size->width;
        properties.pixelHeight = size->height;
    }
    contents.xmpPacket = tiff.bytes(first.find(xmpPacket));
    if (tiff.hasSensorBorders()) {
        contents.embeddedJpeg = tiff.bytes(first.find(jpgFromRaw));
    }
}

} // namespace

std::optional<TiffContents> readTiff(FileWindow& file, FileRange structure, TiffRoot root) {
    auto tiff = TiffStructure::open(file, structure);
    if (!tiff) {
        return std::nullopt;
    }
    TiffContents contents;
    switch (root) {
    case TiffRoot::image:
        readImage(*tiff, contents);
        break;
    case TiffRoot::exif:
        readExif(*tiff, tiff->directory(tiff->firstDirectory(), exifTags), contents.properties.exif);
        break;
    case TiffRoot::gps:
        readGps(*tiff, tiff->directory(tiff->firstDirectory(), gpsTags), contents.properties.gps);
        break;
    }
    return contents;
}

} // namespace lumeo
