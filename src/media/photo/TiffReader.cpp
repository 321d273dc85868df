#include "media/photo/TiffReader.h"

#include "media/photo/ExifValues.h"
#include "media/photo/TiffStructure.h"

#include <array>
#include <cstdint>
#include <string>

namespace lumeo {

namespace {

enum Tag : std::uint16_t {
    gpsLatitudeRef = 0x0001,
    gpsLatitude = 0x0002,
    gpsLongitudeRef = 0x0003,
    gpsLongitude = 0x0004,
    sensorTopBorder = 0x0004, ///< these four only in the first directory of one RAW format
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
    photoshop = 0x8649,
    exifIfd = 0x8769,
    gpsIfd = 0x8825,
    dateTimeOriginal = 0x9003,
    dateTimeDigitized = 0x9004,
    pixelXDimension = 0xA002,
    pixelYDimension = 0xA003,
    lensModel = 0xA434,
};

constexpr std::size_t mostSubdirectories = 16;
constexpr std::uint16_t sensorBorderMagic = 0x55; ///< of the RAW format that tells its sensor's borders

/// A number of pixels that an image can have.
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

std::optional<ImageSize> imageSize(TiffStructure& tiff, const TiffDirectory& directory) {
    const auto width = pixels(tiff.integer(directory.find(imageWidth)));
    const auto height = pixels(tiff.integer(directory.find(imageLength)));
    if (!width || !height) {
        return std::nullopt;
    }
    const bool isReduced = (tiff.integer(directory.find(newSubfileType)).value_or(0) & 1U) != 0;
    return ImageSize{*width, *height, isReduced};
}

std::optional<ImageSize> sensorSize(TiffStructure& tiff, const TiffDirectory& first) {
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

/// The main image's size. It is taken from the first directory, unless that is a preview, as in many RAW
/// files. Then it is taken from the largest directory below it that is not a preview.
std::optional<ImageSize> mainImageSize(TiffStructure& tiff, const TiffDirectory& first) {
    if (tiff.magic() == sensorBorderMagic) {
        return sensorSize(tiff, first);
    }
    std::optional<ImageSize> best = imageSize(tiff, first);
    if (best && !best->isReduced) {
        return best;
    }
    const TiffEntry* const subdirectories = first.find(subIfds);
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

/// Fills in what `exif` lacks.
void readExif(TiffStructure& tiff, const TiffDirectory& directory, PhotoProperties::Exif& exif) {
    const auto fillDate = [&](std::optional<Instant>& fact, std::uint16_t tag) {
        if (!fact) {
            fact = photoDate(tiff.text(directory.find(tag)));
        }
    };
    const auto fillSide = [&](std::optional<std::int64_t>& side, std::uint16_t tag) {
        if (!side) {
            side = pixels(tiff.integer(directory.find(tag)));
        }
    };
    fillDate(exif.dateTimeOriginal, dateTimeOriginal);
    fillDate(exif.dateTimeDigitized, dateTimeDigitized);
    if (!exif.lensModel) {
        exif.lensModel = tiff.text(directory.find(lensModel));
    }
    fillSide(exif.pixelXDimension, pixelXDimension);
    fillSide(exif.pixelYDimension, pixelYDimension);
}

void readGps(TiffStructure& tiff, const TiffDirectory& directory, PhotoProperties::Gps& gps) {
    gps.latitude = tiff.degrees(directory.find(gpsLatitude));
    gps.latitudeRef = tiff.text(directory.find(gpsLatitudeRef));
    gps.longitude = tiff.degrees(directory.find(gpsLongitude));
    gps.longitudeRef = tiff.text(directory.find(gpsLongitudeRef));
}

constexpr std::array<std::uint16_t, 5> exifTags{dateTimeOriginal, dateTimeDigitized, pixelXDimension,
                                                pixelYDimension, lensModel};
constexpr std::array<std::uint16_t, 4> gpsTags{gpsLatitudeRef, gpsLatitude, gpsLongitudeRef, gpsLongitude};
constexpr std::array<std::uint16_t, 21> imageTags{sensorTopBorder,
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
                                                  photoshop,
                                                  exifIfd,
                                                  gpsIfd,
                                                  dateTimeOriginal,
                                                  dateTimeDigitized,
                                                  pixelXDimension,
                                                  pixelYDimension,
                                                  lensModel};

void readImage(TiffStructure& tiff, TiffContents& contents) {
    PhotoProperties& properties = contents.properties;
    const TiffDirectory first = tiff.directory(tiff.firstDirectory(), imageTags);
    properties.tiff = {photoDate(tiff.text(first.find(dateTime))), tiff.text(first.find(make)),
                       tiff.text(first.find(model))};
    if (const auto offset = tiff.integer(first.find(exifIfd))) {
        readExif(tiff, tiff.directory(*offset, exifTags), properties.exif);
    }
    // Some RAW files have their dates here, as TIFF/EP allows.
    readExif(tiff, first, properties.exif);
    if (const auto offset = tiff.integer(first.find(gpsIfd))) {
        readGps(tiff, tiff.directory(*offset, gpsTags), properties.gps);
    }
    if (const auto size = mainImageSize(tiff, first)) {
        properties.pixelWidth = size->width;
        properties.pixelHeight = size->height;
    }
    contents.xmpPacket = tiff.bytes(first.find(xmpPacket));
    contents.photoshop = tiff.bytes(first.find(photoshop));
    if (tiff.magic() == sensorBorderMagic) {
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
