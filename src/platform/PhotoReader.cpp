#include "platform/PhotoReader.h"

#include "platform/FileSystem.h"
#include "platform/photo/ByteOrder.h"
#include "platform/photo/FileWindow.h"
#include "platform/photo/ImageHeader.h"
#include "platform/photo/JpegReader.h"
#include "platform/photo/LibraryReader.h"
#include "platform/photo/TiffReader.h"
#include "platform/photo/X3fReader.h"
#include "platform/photo/XmpDictionary.h"

#include <limits>
#include <utility>

namespace lumeo {

namespace {

void fillFromXmpRange(FileWindow& file, const std::optional<FileRange>& range, PhotoProperties& properties) {
    if (!range || range->length > FileWindow::largestView) {
        return;
    }
    if (const auto packet = file.view(range->offset, static_cast<std::size_t>(range->length))) {
        fillFromXmpPacket(*packet, properties);
    }
}

std::optional<PhotoProperties> readJpegAt(FileWindow& file, std::uint64_t offset) {
    const auto jpeg = readJpeg(file, offset);
    if (!jpeg) {
        return std::nullopt;
    }
    PhotoProperties properties;
    if (const auto exif = jpeg->exif ? readTiff(file, *jpeg->exif) : std::nullopt) {
        properties = exif->properties;
    }
    properties.pixelWidth = jpeg->pixelWidth;
    properties.pixelHeight = jpeg->pixelHeight;
    fillFromXmpRange(file, jpeg->xmpPacket, properties);
    return properties;
}

/// Gives `to` each fact that it lacks and `from` has.
void fillFrom(const PhotoProperties& from, PhotoProperties& to) {
    const auto fill = [](auto& fact, const auto& other) {
        if (!fact) {
            fact = other;
        }
    };
    fill(to.exif.dateTimeOriginal, from.exif.dateTimeOriginal);
    fill(to.exif.dateTimeDigitized, from.exif.dateTimeDigitized);
    fill(to.exif.lensModel, from.exif.lensModel);
    fill(to.tiff.dateTime, from.tiff.dateTime);
    fill(to.tiff.make, from.tiff.make);
    fill(to.tiff.model, from.tiff.model);
    if (!to.gps.latitude) {
        to.gps = from.gps;
    }
}

std::optional<PhotoProperties> readTiffFile(FileWindow& file) {
    auto tiff = readTiff(file, {0, std::numeric_limits<std::int64_t>::max()});
    if (!tiff) {
        return std::nullopt;
    }
    PhotoProperties properties = std::move(tiff->properties);
    if (tiff->embeddedJpeg) {
        if (const auto inner = readJpegAt(file, tiff->embeddedJpeg->offset)) {
            fillFrom(*inner, properties);
        }
    }
    fillFromXmpRange(file, tiff->xmpPacket, properties);
    return properties;
}

/// The metadata of a RAF stands in the JPEG preview, whose size says nothing about the photo's.
std::optional<PhotoProperties> readRaf(FileWindow& file) {
    constexpr std::size_t jpegOffsetAt = 84;
    const auto offset = file.view(jpegOffsetAt, 4);
    auto properties =
        offset ? readJpegAt(file, numberAt<std::uint32_t>(*offset, 0, std::endian::big)) : std::nullopt;
    return properties;
}

std::optional<PhotoProperties> readKind(FileWindow& file, ImageKind kind) {
    switch (kind) {
    case ImageKind::unknown:
        return std::nullopt;
    case ImageKind::jpeg:
        return readJpegAt(file, 0);
    case ImageKind::tiff:
        return readTiffFile(file);
    case ImageKind::raf:
        return readRaf(file);
    case ImageKind::x3f:
        return readX3f(file);
    case ImageKind::isoMedia:
        return readWithLibrary(file);
    case ImageKind::crw:
    case ImageKind::mrw:
    case ImageKind::png:
    case ImageKind::webp:
    case ImageKind::jp2:
        return readWithLibrary(file).value_or(PhotoProperties{});
    case ImageKind::jpegCodestream:
    case ImageKind::gif:
    case ImageKind::bmp:
    case ImageKind::ico:
        return PhotoProperties{};
    }
    return std::nullopt;
}

} // namespace

std::optional<PhotoProperties> PhotoReader::read(const FileSystem& fileSystem, const FilePath& path) {
    auto opened = fileSystem.openForReading(path);
    if (!opened) {
        return std::nullopt;
    }
    FileWindow file(**opened);
    const ImageKind kind = imageKind(file);
    auto properties = readKind(file, kind);
    if (properties) {
        if (const auto size = headerPixelSize(file, kind)) {
            properties->pixelWidth = size->width;
            properties->pixelHeight = size->height;
        }
    }
    return properties;
}

} // namespace lumeo
