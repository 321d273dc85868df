#include "dates/PhotoMetadataExtractor.h"

#include "media/photo/PhotoReader.h"
#include "platform/Utf8Text.h"

namespace lumeo {

namespace {

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
    result.dateTimeOriginal = properties.exif.dateTimeOriginal;
    result.dateTimeDigitized = properties.exif.dateTimeDigitized;
    result.tiffDateTime = properties.tiff.dateTime;
    result.cameraMake = cameraText(properties.tiff.make);
    result.cameraModel = cameraText(properties.tiff.model);
    result.lensModel = cameraText(properties.exif.lensModel);
    result.pixelWidth = properties.pixelWidth ? properties.pixelWidth : properties.exif.pixelXDimension;
    result.pixelHeight = properties.pixelHeight ? properties.pixelHeight : properties.exif.pixelYDimension;
    readPosition(properties.gps, result);
    return result;
}

} // namespace lumeo
