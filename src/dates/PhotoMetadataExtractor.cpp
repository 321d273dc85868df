#include "dates/PhotoMetadataExtractor.h"

#include "media/photo/PhotoReader.h"
#include "platform/DateText.h"
#include "platform/Utf8Text.h"

namespace lumeo {

namespace {

std::optional<Instant> date(const std::optional<std::string>& text) {
    if (!text) {
        return std::nullopt;
    }
    const std::string_view stamp = trimmingWhitespace(*text);
    if (stamp.empty()) {
        return std::nullopt;
    }
    if (const auto wallClock = DateText::parseExif(stamp)) {
        return wallClock;
    }
    return DateText::parseIso8601(stamp);
}

/// Camera texts are shown and coded as UTF-8, whatever the camera wrote.
std::optional<std::string> cameraText(const std::optional<std::string>& text) {
    return text ? std::optional(replacingInvalidUtf8(trimmingWhitespace(*text))) : std::nullopt;
}

void readPosition(const PhotoProperties::Gps& gps, PhotoMetadataResult& result) {
    if (!gps.latitude || !gps.latitudeRef || !gps.longitude || !gps.longitudeRef) {
        return;
    }
    result.hasGPS = true;
    result.gpsLatitude = *gps.latitudeRef == "S" ? -*gps.latitude : *gps.latitude;
    result.gpsLongitude = *gps.longitudeRef == "W" ? -*gps.longitude : *gps.longitude;
}

} // namespace

PhotoMetadataResult PhotoMetadataExtractor::extractMetadata(const FileSystem& fileSystem,
                                                            const FilePath& path,
                                                            const std::stop_token& stop) {
    const auto properties = PhotoReader::read(fileSystem, path, stop);
    return properties ? fromProperties(*properties) : PhotoMetadataResult{};
}

PhotoMetadataResult PhotoMetadataExtractor::fromProperties(const PhotoProperties& properties) {
    PhotoMetadataResult result;
    result.dateTimeOriginal = date(properties.exif.dateTimeOriginal);
    result.dateTimeDigitized = date(properties.exif.dateTimeDigitized);
    result.tiffDateTime = date(properties.tiff.dateTime);
    result.cameraMake = cameraText(properties.tiff.make);
    result.cameraModel = cameraText(properties.tiff.model);
    result.lensModel = cameraText(properties.exif.lensModel);
    result.pixelWidth = properties.pixelWidth ? properties.pixelWidth : properties.exif.pixelXDimension;
    result.pixelHeight = properties.pixelHeight ? properties.pixelHeight : properties.exif.pixelYDimension;
    readPosition(properties.gps, result);
    return result;
}

} // namespace lumeo
