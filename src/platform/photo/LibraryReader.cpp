#include "platform/photo/LibraryReader.h"

#include "platform/photo/LibraryInput.h"
#include "platform/photo/MetadataLibrary.h"
#include "platform/photo/XmpDictionary.h"

#include <exception>
#include <memory>

#include <exiv2/exiv2.hpp>
#include <exiv2/webpimage.hpp>

namespace lumeo {

namespace {

const Exiv2::Exifdatum* find(const Exiv2::ExifData& exif, const char* key) {
    const auto found = exif.findKey(Exiv2::ExifKey(key));
    return found == exif.end() ? nullptr : &*found;
}

std::optional<std::string> text(const Exiv2::ExifData& exif, const char* key) {
    const Exiv2::Exifdatum* const datum = find(exif, key);
    if (datum == nullptr || datum->typeId() != Exiv2::asciiString) {
        return std::nullopt;
    }
    const std::string value = datum->toString();
    return value.substr(0, value.find('\0'));
}

std::optional<std::int64_t> pixels(const Exiv2::ExifData& exif, const char* key) {
    const Exiv2::Exifdatum* const datum = find(exif, key);
    if (datum == nullptr || datum->count() == 0 ||
        (datum->typeId() != Exiv2::unsignedShort && datum->typeId() != Exiv2::unsignedLong)) {
        return std::nullopt;
    }
    const std::int64_t value = datum->toLong();
    return value > 0 ? std::optional(value) : std::nullopt;
}

std::optional<double> degrees(const Exiv2::ExifData& exif, const char* key) {
    const Exiv2::Exifdatum* const datum = find(exif, key);
    if (datum == nullptr || datum->typeId() != Exiv2::unsignedRational || datum->count() == 0 ||
        datum->count() > 3) {
        return std::nullopt;
    }
    double degrees = 0;
    double unit = 1;
    for (long i = 0; i < datum->count(); ++i, unit /= 60) {
        const auto [numerator, denominator] = datum->toRational(i);
        if (denominator == 0) {
            return std::nullopt;
        }
        // The library hands unsigned fractions on as signed ones.
        degrees += unit * static_cast<std::uint32_t>(numerator) / static_cast<std::uint32_t>(denominator);
    }
    return degrees;
}

void fillFromExif(const Exiv2::ExifData& exif, PhotoProperties& properties) {
    properties.exif = {text(exif, "Exif.Photo.DateTimeOriginal"), text(exif, "Exif.Photo.DateTimeDigitized"),
                       text(exif, "Exif.Photo.LensModel"), pixels(exif, "Exif.Photo.PixelXDimension"),
                       pixels(exif, "Exif.Photo.PixelYDimension")};
    properties.tiff = {text(exif, "Exif.Image.DateTime"), text(exif, "Exif.Image.Make"),
                       text(exif, "Exif.Image.Model")};
    properties.gps = {degrees(exif, "Exif.GPSInfo.GPSLatitude"), text(exif, "Exif.GPSInfo.GPSLatitudeRef"),
                      degrees(exif, "Exif.GPSInfo.GPSLongitude"), text(exif, "Exif.GPSInfo.GPSLongitudeRef")};
}

/// The library's reader for just this kind. Left to choose by itself, it would also try readers of movies
/// that damaged files bring down.
std::unique_ptr<Exiv2::Image> openImage(FileWindow& file, ImageKind kind) {
    Exiv2::NewInstanceFct open = nullptr;
    switch (kind) {
    case ImageKind::crw:
        open = Exiv2::newCrwInstance;
        break;
    case ImageKind::mrw:
        open = Exiv2::newMrwInstance;
        break;
    case ImageKind::png:
        open = Exiv2::newPngInstance;
        break;
    case ImageKind::webp:
        open = Exiv2::newWebPInstance;
        break;
    case ImageKind::jp2:
        open = Exiv2::newJp2Instance;
        break;
    default:
        return nullptr;
    }
    constexpr bool createsFile = false;
    return std::unique_ptr<Exiv2::Image>(
        open(Exiv2::BasicIo::AutoPtr(new LibraryInput(file)), createsFile).release());
}

} // namespace

std::optional<PhotoProperties> readWithLibrary(FileWindow& file, ImageKind kind) {
    const auto lock = lockMetadataLibrary();
    std::unique_ptr<Exiv2::Image> image;
    try {
        image = openImage(file, kind);
        if (!image) {
            return std::nullopt;
        }
        image->readMetadata();
    } catch (const std::exception&) {
        // What was read before stands in the image.
        if (!image) {
            return std::nullopt;
        }
    }
    PhotoProperties properties;
    try {
        fillFromExif(image->exifData(), properties);
        fillFromXmp(image->xmpData(), properties);
    } catch (const std::exception&) {
        return properties;
    }
    if (image->pixelWidth() > 0 && image->pixelHeight() > 0) {
        properties.pixelWidth = image->pixelWidth();
        properties.pixelHeight = image->pixelHeight();
    }
    return properties;
}

} // namespace lumeo
