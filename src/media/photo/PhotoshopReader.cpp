#include "media/photo/PhotoshopReader.h"

#include "media/FieldReader.h"
#include "platform/DateText.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace lumeo {

namespace {

enum Resource : std::uint16_t {
    pressFacts = 0x0404,
    exif = 0x0422,
    xmpPacket = 0x0424,
};

constexpr std::size_t mostResources = 1'000;
constexpr std::size_t mostPressFacts = 1'000;

/// "20210314" and "153045+0100". The time may be missing.
std::optional<Instant> pressDate(std::string_view day, std::string_view time) {
    if (day.size() != 8) {
        return std::nullopt;
    }
    const auto part = [](std::string_view text, std::size_t at, std::size_t size) {
        return std::string(text.substr(at, size));
    };
    const std::string date = part(day, 0, 4) + '-' + part(day, 4, 2) + '-' + part(day, 6, 2);
    if (time.size() >= 6) {
        const std::string clock = part(time, 0, 2) + ':' + part(time, 2, 2) + ':' + part(time, 4, 7);
        if (const auto instant = DateText::parsePhoto(date + 'T' + clock)) {
            return instant;
        }
    }
    return DateText::parsePhoto(date);
}

/// The date among the facts of press agencies. Each fact is a short record.
std::optional<Instant> readPressDate(FileWindow& file, FileRange facts) {
    constexpr std::uint64_t mark = 0x1C;
    constexpr std::uint64_t dayCreated = 0x0237; // record 2, numbers 55 and 60
    constexpr std::uint64_t timeCreated = 0x023C;
    constexpr std::uint64_t longest = 0x7FFF; // a larger value means that the length follows
    std::string day;
    std::string time;
    FieldReader fields(file, facts);
    for (std::size_t i = 0; i < mostPressFacts && fields.number(1) == mark; ++i) {
        const std::uint64_t fact = fields.number(2);
        const std::uint64_t length = fields.number(2);
        if (length > longest || fields.hasFailed()) {
            break;
        }
        const FileRange value = fields.rest();
        fields.skip(static_cast<std::size_t>(length));
        if (!fields.hasFailed() && (fact == dayCreated || fact == timeCreated)) {
            (fact == dayCreated ? day : time) = file.read(value.offset, static_cast<std::size_t>(length));
        }
    }
    return pressDate(day, time);
}

} // namespace

PhotoshopContents readPhotoshopResources(FileWindow& file, FileRange resources) {
    PhotoshopContents contents;
    FieldReader fields(file, resources);
    for (std::size_t i = 0; i < mostResources; ++i) {
        fields.skip(4); // a signature; there are several
        const std::uint64_t resource = fields.number(2);
        const std::uint64_t nameLength = fields.number(1);
        fields.skip(static_cast<std::size_t>(nameLength | 1U)); // its length is padded to an even number
        const std::uint64_t length = fields.code();
        if (fields.hasFailed()) {
            break;
        }
        const FileRange value{fields.rest().offset, std::min(length, fields.rest().length)};
        if (resource == exif) {
            contents.exif = value;
        } else if (resource == xmpPacket) {
            contents.xmpPacket = value;
        } else if (resource == pressFacts) {
            contents.dateCreated = readPressDate(file, value);
        }
        fields = FieldReader(file, behind(fields.rest(), length + length % 2));
    }
    return contents;
}

PhotoshopContents readPsd(FileWindow& file) {
    constexpr std::uint64_t headerSize = 26;
    FieldReader fields(file, behind({0, file.size()}, headerSize));
    const std::uint64_t coloursLength = fields.code();
    FieldReader resources(file, behind(fields.rest(), coloursLength));
    const std::uint64_t length = resources.code();
    return readPhotoshopResources(file, {resources.rest().offset, std::min(length, resources.rest().length)});
}

} // namespace lumeo
