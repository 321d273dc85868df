#include "media/photo/LibraryReader.h"

#include "media/photo/ExifValues.h"

#include <algorithm>
#include <array>
#include <exception>
#include <memory>
#include <mutex>
#include <span>
#include <string>
#include <string_view>

#include <exiv2/exiv2.hpp>

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
    std::array<ExifFraction, 3> parts;
    const auto count = datum == nullptr ? 0 : static_cast<std::size_t>(datum->count());
    if (count == 0 || count > parts.size() || datum->typeId() != Exiv2::unsignedRational) {
        return std::nullopt;
    }
    for (std::size_t i = 0; i < count; ++i) {
        const auto [numerator, denominator] = datum->toRational(static_cast<long>(i));
        // The library hands unsigned fractions on as signed ones.
        parts[i] = {static_cast<std::uint32_t>(numerator), static_cast<std::uint32_t>(denominator)};
    }
    return decimalDegrees(std::span(parts).first(count));
}

void fillFromExif(const Exiv2::ExifData& exif, PhotoProperties& properties) {
    const auto date = [&exif](const char* key) { return setExifDate(text(exif, key)); };
    properties.exif = {date("Exif.Photo.DateTimeOriginal"), date("Exif.Photo.DateTimeDigitized"),
                       text(exif, "Exif.Photo.LensModel"), pixels(exif, "Exif.Photo.PixelXDimension"),
                       pixels(exif, "Exif.Photo.PixelYDimension")};
    properties.tiff = {date("Exif.Image.DateTime"), text(exif, "Exif.Image.Make"),
                       text(exif, "Exif.Image.Model")};
    properties.gps = {degrees(exif, "Exif.GPSInfo.GPSLatitude"), text(exif, "Exif.GPSInfo.GPSLatitudeRef"),
                      degrees(exif, "Exif.GPSInfo.GPSLongitude"), text(exif, "Exif.GPSInfo.GPSLongitudeRef")};
}

/// Reads from `bytes` with the reader that `open` makes.
PhotoProperties readBytes(std::string_view bytes, Exiv2::NewInstanceFct open) {
    static std::once_flag isMuted;
    std::call_once(isMuted, [] { Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute); });
    PhotoProperties properties;
    std::unique_ptr<Exiv2::Image> image;
    try {
        constexpr bool createsFile = false;
        const auto* const data = reinterpret_cast<const Exiv2::byte*>(bytes.data());
        // NOLINTNEXTLINE(clang-diagnostic-deprecated-declarations): the library still asks for it
        Exiv2::BasicIo::AutoPtr io(new Exiv2::MemIo(data, static_cast<long>(bytes.size())));
        image.reset(open(io, createsFile).release());
        if (image) {
            image->readMetadata();
        }
    } catch (const std::exception&) {
        // What was read before stands in the image, if there is one.
    }
    try {
        if (image) {
            fillFromExif(image->exifData(), properties);
        }
        if (image && image->pixelWidth() > 0 && image->pixelHeight() > 0) {
            properties.pixelWidth = image->pixelWidth();
            properties.pixelHeight = image->pixelHeight();
        }
    } catch (const std::exception&) {
        return properties;
    }
    return properties;
}

} // namespace

PhotoProperties readCrw(FileWindow& file) {
    constexpr std::uint64_t largest = 24 * 1024 * 1024;
    // The library looks for the end of a text behind the end of the file, so zeros stand there.
    constexpr std::size_t guard = 16;
    const auto size = static_cast<std::size_t>(std::min(file.size(), largest));
    std::string bytes(size + guard, '\0');
    return readBytes(std::string_view(bytes).substr(0, file.copy(0, bytes.data(), size)),
                     Exiv2::newCrwInstance);
}

PhotoProperties readPngTextProfile(FileWindow& file, FileRange chunk) {
    using namespace std::string_view_literals;
    constexpr std::uint64_t largest = 1024 * 1024;
    const auto bytes = chunk.length <= largest
                           ? file.view(chunk.offset, static_cast<std::size_t>(chunk.length))
                           : std::nullopt;
    if (!bytes) {
        return {};
    }
    // An image of one gray pixel around the chunk, so that the library reads nothing else.
    std::string png("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\0\1\0\0\0\1\x08\0\0\0\0\x3A\x7E\x9B\x55"sv);
    png += *bytes;
    png += "\0\0\0\0IEND\xAE\x42\x60\x82"sv;
    PhotoProperties properties = readBytes(png, Exiv2::newPngInstance);
    properties.pixelWidth.reset();
    properties.pixelHeight.reset();
    return properties;
}

} // namespace lumeo
