#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace lumeo {

enum class XmpProperty : std::size_t {
    dateTimeOriginal,
    dateTimeDigitized,
    dateCreated, ///< photoshop:DateCreated, of what the picture shows
    createDate,  ///< xmp:CreateDate, of the file: of a scan the day it was made
    modifyDate,
    make,
    model,
    lensModel,
    lens,
    gpsLatitude,
    gpsLongitude,
};

/// The few properties of an XMP packet that a photo is dated and described by. They are all plain texts:
/// attributes of a description, elements in it, or the value of such an element that has qualifiers as well.
/// Descriptions within other properties, such as those of a collage's parts, are passed over. Of a damaged
/// packet what stands before the damage is kept. A packet that declares a document type, and so entities, is
/// not read.
class XmpPacket {
public:
    /// Reads in one pass, in time and memory that grow with the packet's length alone.
    explicit XmpPacket(std::string_view packet);

    /// The first value that the packet gives, without white space around it; absent when it has none, or
    /// one of more than 1,024 bytes.
    const std::optional<std::string>& operator[](XmpProperty property) const {
        return values_[static_cast<std::size_t>(property)];
    }

private:
    static constexpr std::size_t propertyCount = 11;

    class Parsing;

    std::array<std::optional<std::string>, propertyCount> values_;
};

} // namespace lumeo
