#include "media/photo/XmpReader.h"

#include "media/photo/XmpPacket.h"

#include <cctype>
#include <charconv>
#include <string>

namespace lumeo {

namespace {

bool isPositionComplete(const PhotoProperties::Gps& gps) {
    return gps.latitude && gps.latitudeRef && gps.longitude && gps.longitudeRef;
}

/// True when `text` begins with `pattern`, in which 0 stands for any digit.
bool fits(std::string_view text, std::string_view pattern) {
    if (text.size() < pattern.size()) {
        return false;
    }
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const bool isDigit = std::isdigit(static_cast<unsigned char>(text[i])) != 0;
        if (pattern[i] == '0' ? !isDigit : text[i] != pattern[i]) {
            return false;
        }
    }
    return true;
}

/// XMP may leave out the seconds and the zone, or give a fraction: without a zone the text becomes the
/// Exif form, since both mean the wall clock; with one it stands, seconds added where they lack.
std::string exifForm(std::string_view xmpDate) {
    constexpr std::string_view toMinutes = "0000-00-00T00:00";
    if (!fits(xmpDate, toMinutes)) {
        return std::string(xmpDate);
    }
    std::string head(xmpDate.substr(0, toMinutes.size()));
    std::string_view rest = xmpDate.substr(toMinutes.size());
    if (fits(rest, ":00")) {
        head += rest.substr(0, 3);
        rest.remove_prefix(3);
    } else {
        head += ":00";
    }
    if (rest.find_first_not_of(".0123456789") != std::string_view::npos) {
        return head.append(rest);
    }
    head[4] = head[7] = ':';
    head[10] = ' ';
    return head;
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
    const auto fillDate = [&xmp](std::optional<std::string>& fact, XmpProperty property) {
        if (!fact && xmp[property]) {
            fact = exifForm(*xmp[property]);
        }
    };
    fillDate(properties.exif.dateTimeOriginal, XmpProperty::dateTimeOriginal);
    fillDate(properties.exif.dateTimeDigitized, XmpProperty::dateTimeDigitized);
    fillDate(properties.tiff.dateTime, XmpProperty::modifyDate);
    fill(properties.tiff.make, XmpProperty::make);
    fill(properties.tiff.model, XmpProperty::model);
    fill(properties.exif.lensModel, XmpProperty::lensModel);
    fill(properties.exif.lensModel, XmpProperty::lens);
    fillPosition(xmp, properties.gps);
}

} // namespace lumeo
