#include "media/photo/XmpReader.h"

#include "media/photo/ExifValues.h"
#include "media/photo/SceneDate.h"
#include "media/photo/XmpPacket.h"

#include <charconv>
#include <string>

namespace lumeo {

namespace {

bool isPositionComplete(const PhotoProperties::Gps& gps) {
    return gps.latitude && gps.latitudeRef && gps.longitude && gps.longitudeRef;
}

struct Coordinate {
    double degrees = 0;
    std::string reference;
};

/// Reads "48,51.2N" and "48,51,12N".
std::optional<Coordinate> coordinate(const std::optional<std::string>& text, std::string_view references) {
    if (!text || text->empty() || references.find(text->back()) == std::string_view::npos) {
        return std::nullopt;
    }
    const char* at = text->data();
    const char* const end = at + text->size() - 1;
    double degrees = 0;
    double unit = 1;
    for (int part = 0; part < 3; ++part) {
        double number = 0;
        const auto [next, error] = std::from_chars(at, end, number, std::chars_format::fixed);
        if (error != std::errc{} || !(number >= 0 && number <= 180)) { // "nan" and "inf" are numbers too
            return std::nullopt;
        }
        degrees += unit * number;
        unit /= 60;
        if (next == end) {
            return Coordinate{degrees, std::string(1, text->back())};
        }
        if (*next != ',') {
            return std::nullopt;
        }
        at = next + 1;
    }
    return std::nullopt;
}

void fillPosition(const XmpPacket& xmp, PhotoProperties::Gps& gps) {
    if (isPositionComplete(gps)) {
        return;
    }
    const auto latitude = coordinate(xmp[XmpProperty::gpsLatitude], "NS");
    const auto longitude = coordinate(xmp[XmpProperty::gpsLongitude], "EW");
    if (latitude && longitude) {
        gps = {latitude->degrees, latitude->reference, longitude->degrees, longitude->reference};
    }
}

} // namespace

void fillFromXmp(std::string_view packet, PhotoProperties& properties) {
    const XmpPacket xmp(packet);
    const auto fill = [&xmp](std::optional<std::string>& fact, XmpProperty property) {
        if (!fact) {
            fact = xmp[property];
        }
    };
    const auto fillDate = [&xmp](std::optional<Instant>& date, XmpProperty property) {
        if (!date) {
            date = photoDate(xmp[property]);
        }
    };
    fillDate(properties.exif.dateTimeOriginal, XmpProperty::dateTimeOriginal);
    fillDate(properties.exif.dateTimeDigitized, XmpProperty::dateTimeDigitized);
    fillDate(properties.exif.dateTimeDigitized, XmpProperty::createDate);
    fillDate(properties.tiff.dateTime, XmpProperty::modifyDate);
    fillSceneDate(photoDate(xmp[XmpProperty::dateCreated]), properties);
    fill(properties.tiff.make, XmpProperty::make);
    fill(properties.tiff.model, XmpProperty::model);
    fill(properties.exif.lensModel, XmpProperty::lensModel);
    fill(properties.exif.lensModel, XmpProperty::lens);
    fillPosition(xmp, properties.gps);
}

} // namespace lumeo
