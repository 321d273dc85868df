#include "media/photo/PhotoReader.h"

#include "media/ByteOrder.h"
#include "media/BytesFile.h"
#include "media/FileWindow.h"
#include "media/photo/ChunkReader.h"
#include "media/photo/CrwReader.h"
#include "media/photo/ImageHeader.h"
#include "media/photo/IsoMediaReader.h"
#include "media/photo/JpegReader.h"
#include "media/photo/JxlReader.h"
#include "media/photo/PhotoshopReader.h"
#include "media/photo/PngReader.h"
#include "media/photo/SceneDate.h"
#include "media/photo/TiffReader.h"
#include "media/photo/X3fReader.h"
#include "media/photo/XmpReader.h"
#include "platform/FileSystem.h"

#include <limits>
#include <string>
#include <utility>

namespace lumeo {

namespace {

void fillFromXmpRange(FileWindow& file, const std::optional<FileRange>& range, PhotoProperties& properties) {
    if (!range || range->length > FileWindow::largestView) {
        return;
    }
    if (const auto packet = file.view(range->offset, static_cast<std::size_t>(range->length))) {
        fillFromXmp(*packet, properties);
    }
}

/// Adds the facts in Photoshop's resources that are not in the Exif and XMP of the file itself.
void fillFromPhotoshop(FileWindow& file, const std::optional<FileRange>& resources,
                       PhotoProperties& properties) {
    if (resources && !properties.exif.dateTimeOriginal) {
        fillSceneDate(readPhotoshopResources(file, *resources).dateCreated, properties);
    }
}

/// Copies each fact that `properties` lacks from `other`, except the pixel size.
void fillFrom(const PhotoProperties& other, PhotoProperties& properties) {
    const auto fill = [](auto& fact, const auto& otherFact) {
        if (!fact) {
            fact = otherFact;
        }
    };
    fill(properties.exif.dateTimeOriginal, other.exif.dateTimeOriginal);
    fill(properties.exif.dateTimeDigitized, other.exif.dateTimeDigitized);
    fill(properties.exif.lensModel, other.exif.lensModel);
    fill(properties.exif.pixelXDimension, other.exif.pixelXDimension);
    fill(properties.exif.pixelYDimension, other.exif.pixelYDimension);
    fill(properties.tiff.dateTime, other.tiff.dateTime);
    fill(properties.tiff.make, other.tiff.make);
    fill(properties.tiff.model, other.tiff.model);
    if (!properties.gps.latitude && !properties.gps.longitude) {
        properties.gps = other.gps;
    }
}

std::optional<PhotoProperties> readJpegAt(FileWindow& file, std::uint64_t offset) {
    const auto jpeg = readJpeg(file, offset);
    if (!jpeg) {
        return std::nullopt;
    }
    PhotoProperties properties;
    if (auto exif = jpeg->exif ? readTiff(file, *jpeg->exif) : std::nullopt) {
        properties = std::move(exif->properties);
    }
    properties.pixelWidth = jpeg->pixelWidth;
    properties.pixelHeight = jpeg->pixelHeight;
    fillFromXmpRange(file, jpeg->xmpPacket, properties);
    fillFromPhotoshop(file, jpeg->photoshop, properties);
    return properties;
}

/// The metadata of a RAW file's preview belongs to the photo. The preview's size does not.
void fillFromPreview(FileWindow& file, const std::optional<FileRange>& jpeg, PhotoProperties& properties) {
    if (const auto preview = jpeg ? readJpegAt(file, jpeg->offset) : std::nullopt) {
        fillFrom(*preview, properties);
    }
}

std::optional<PhotoProperties> readTiffFile(FileWindow& file) {
    auto tiff = readTiff(file, {0, std::numeric_limits<std::int64_t>::max()});
    if (!tiff) {
        return std::nullopt;
    }
    PhotoProperties properties = std::move(tiff->properties);
    // The first image of a CR2 is a preview, but is not marked as one. Its Exif dimensions are those of the
    // photo.
    if (file.view(8, 2) == "CR") {
        properties.pixelWidth.reset();
        properties.pixelHeight.reset();
    }
    fillFromPreview(file, tiff->embeddedJpeg, properties);
    fillFromXmpRange(file, tiff->xmpPacket, properties);
    fillFromPhotoshop(file, tiff->photoshop, properties);
    return properties;
}

PhotoProperties readRaf(FileWindow& file) {
    constexpr std::size_t jpegRangeAt = 84;
    PhotoProperties properties;
    if (const auto range = file.view(jpegRangeAt, 8)) {
        const FileRange jpeg{numberAt<std::uint32_t>(*range, 0, std::endian::big),
                             numberAt<std::uint32_t>(*range, 4, std::endian::big)};
        fillFromPreview(file, jpeg, properties);
    }
    return properties;
}

PhotoProperties readX3fFile(FileWindow& file) {
    X3fContents x3f = readX3f(file);
    fillFromPreview(file, x3f.embeddedJpeg, x3f.properties);
    return std::move(x3f.properties);
}

PhotoProperties propertiesOf(FileWindow& file, const IsoMediaContents& media) {
    PhotoProperties properties;
    for (const IsoMediaContents::TiffPart& part : media.exif) {
        if (const auto tiff = readTiff(file, part.range, part.root)) {
            fillFrom(tiff->properties, properties);
        }
    }
    if (media.size && media.size->width > 0 && media.size->height > 0) {
        properties.pixelWidth = media.size->width;
        properties.pixelHeight = media.size->height;
    }
    fillFromXmpRange(file, media.xmpPacket, properties);
    return properties;
}

std::optional<PhotoProperties> readIsoMediaFile(FileWindow& file) {
    const auto media = readIsoMedia(file);
    return media ? std::optional(propertiesOf(file, *media)) : std::nullopt;
}

PhotoProperties propertiesOf(FileWindow& file, const ChunkContents& chunks) {
    PhotoProperties properties;
    if (auto exif = chunks.exif ? readTiff(file, *chunks.exif) : std::nullopt) {
        properties = std::move(exif->properties);
    }
    fillFromXmpRange(file, chunks.xmpPacket, properties);
    return properties;
}

PhotoProperties readPsdFile(FileWindow& file) {
    const PhotoshopContents psd = readPsd(file);
    PhotoProperties properties = propertiesOf(file, ChunkContents{psd.exif, psd.xmpPacket});
    fillSceneDate(psd.dateCreated, properties);
    return properties;
}

/// Adds what a TIFF structure tells that was decompressed or decoded from text.
void fillFromExif(std::optional<std::string> structure, PhotoProperties& properties) {
    if (!structure) {
        return;
    }
    const FileRange whole{0, structure->size()};
    BytesFile bytes(*std::move(structure));
    FileWindow window(bytes);
    if (const auto exif = readTiff(window, whole)) {
        fillFrom(exif->properties, properties);
    }
}

PhotoProperties readJxlFile(FileWindow& file) {
    JxlContents jxl = readJxl(file);
    PhotoProperties properties;
    fillFromExif(std::move(jxl.exif), properties);
    if (jxl.xmpPacket) {
        fillFromXmp(*jxl.xmpPacket, properties);
    }
    return properties;
}

PhotoProperties readPngFile(FileWindow& file) {
    PngContents png = readPng(file);
    PhotoProperties properties;
    if (auto exif = png.exif ? readTiff(file, *png.exif) : std::nullopt) {
        properties = std::move(exif->properties);
    }
    fillFromExif(std::move(png.exifProfile), properties);
    if (png.xmpPacket) {
        fillFromXmp(*png.xmpPacket, properties);
    }
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
        return readX3fFile(file);
    case ImageKind::isoMedia:
        return readIsoMediaFile(file);
    case ImageKind::jp2:
        return propertiesOf(file, readJp2(file));
    case ImageKind::crw:
        return readCrw(file).properties;
    case ImageKind::png:
        return readPngFile(file);
    case ImageKind::mrw:
        return propertiesOf(file, readMrw(file));
    case ImageKind::webp:
        return propertiesOf(file, readWebp(file));
    case ImageKind::jxl:
        return readJxlFile(file);
    case ImageKind::psd:
        return readPsdFile(file);
    case ImageKind::gif:
        return propertiesOf(file, readGif(file));
    case ImageKind::jpegCodestream:
    case ImageKind::bmp:
    case ImageKind::ico:
        return PhotoProperties{};
    }
    return std::nullopt;
}

} // namespace

std::optional<PhotoProperties> PhotoReader::read(const FileSystem& fileSystem, const FilePath& path,
                                                 const std::stop_token& stop) {
    auto opened = fileSystem.openForReading(path);
    if (!opened) {
        return std::nullopt;
    }
    FileWindow file(**opened, stop);
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
