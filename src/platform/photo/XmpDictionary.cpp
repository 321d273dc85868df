#include "platform/photo/XmpDictionary.h"

#include "platform/photo/MetadataLibrary.h"

#include <cctype>
#include <charconv>
#include <exception>
#include <initializer_list>
#include <string>

#include <exiv2/exiv2.hpp>

namespace lumeo {

namespace {

bool isPositionComplete(const PhotoProperties::Gps& gps) {
    return gps.latitude && gps.latitudeRef && gps.longitude && gps.longitudeRef;
}

/// Whether decoding may bring anything: most packets hold nothing but editing history and labels, and
/// decoding one costs more than all else that is done for a file.
bool namesWhatIsMissing(std::string_view packet, const PhotoProperties& properties) {
    const auto names = [packet](std::string_view name) {
        return packet.find(name) != std::string_view::npos;
    };
    // A packet in UTF-16 or UTF-32 has NULs, and no name to be found by its letters.
    return names(std::string_view("\0", 1)) ||
           (!properties.exif.dateTimeOriginal && names("DateTimeOriginal")) ||
           (!properties.exif.dateTimeDigitized && names("DateTimeDigitized")) ||
           (!properties.tiff.dateTime && names("ModifyDate")) || (!properties.tiff.make && names("Make")) ||
           (!properties.tiff.model && names("Model")) || (!properties.exif.lensModel && names("Lens")) ||
           (!isPositionComplete(properties.gps) && names("GPSLatitude"));
}

std::optional<std::string> text(const Exiv2::XmpData& xmp, const char* key) {
    const auto found = xmp.findKey(Exiv2::XmpKey(key));
    if (found == xmp.end()) {
        return std::nullopt;
    }
    const std::string value = found->toString();
    return value.substr(0, value.find('\0'));
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
    for (int part = 0; part < 3; ++part, unit /= 60) {
        double number = 0;
        const auto [next, error] = std::from_chars(at, end, number, std::chars_format::fixed);
        if (error != std::errc{} || !(number >= 0)) {
            return std::nullopt;
        }
        degrees += unit * number;
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

void fillPosition(const Exiv2::XmpData& xmp, PhotoProperties::Gps& gps) {
    if (isPositionComplete(gps)) {
        return;
    }
    const auto latitude = coordinate(text(xmp, "Xmp.exif.GPSLatitude"), "NS");
    const auto longitude = coordinate(text(xmp, "Xmp.exif.GPSLongitude"), "EW");
    if (latitude && longitude) {
        gps = {latitude->degrees, latitude->reference, longitude->degrees, longitude->reference};
    }
}

} // namespace

void fillFromXmp(const Exiv2::XmpData& xmp, PhotoProperties& properties) {
    const auto fill = [&xmp](std::optional<std::string>& fact, std::initializer_list<const char*> keys) {
        for (const char* const key : keys) {
            if (!fact) {
                fact = text(xmp, key);
            }
        }
    };
    const auto fillDate = [&](std::optional<std::string>& fact, const char* key) {
        if (!fact) {
            fill(fact, {key});
            fact = fact ? std::optional(exifForm(*fact)) : std::nullopt;
        }
    };
    fillDate(properties.exif.dateTimeOriginal, "Xmp.exif.DateTimeOriginal");
    fillDate(properties.exif.dateTimeDigitized, "Xmp.exif.DateTimeDigitized");
    fillDate(properties.tiff.dateTime, "Xmp.xmp.ModifyDate");
    fill(properties.tiff.make, {"Xmp.tiff.Make"});
    fill(properties.tiff.model, {"Xmp.tiff.Model"});
    fill(properties.exif.lensModel, {"Xmp.exifEX.LensModel", "Xmp.aux.Lens"});
    fillPosition(xmp, properties.gps);
}

void fillFromXmpPacket(std::string_view packet, PhotoProperties& properties) {
    if (!namesWhatIsMissing(packet, properties)) {
        return;
    }
    try {
        const auto lock = lockMetadataLibrary();
        Exiv2::XmpData xmp;
        Exiv2::XmpParser::decode(xmp, std::string(packet));
        fillFromXmp(xmp, properties);
    } catch (const std::exception&) {
        // A packet that cannot be read tells nothing; what was filled before stays.
        return;
    }
}

} // namespace lumeo
