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
    dateCreated, ///< photoshop:DateCreated, the date of the scene
    createDate,  ///< xmp:CreateDate, the date of the file; for a scan, when it was made
    modifyDate,
    make,
    model,
    lensModel,
    lens,
    gpsLatitude,
    gpsLongitude,
};

/// The few properties of an XMP packet that the program needs for a photo. All are plain texts: attributes of
/// a description, elements in it, or the value of such an element with qualifiers. Descriptions within other
/// properties, such as those for the parts of a collage, are ignored. In a damaged packet, everything before
/// the damage counts. A packet that declares a document type, and so entities, is not read.
class XmpPacket {
public:
    /// Reads the packet in one pass. Time and memory grow only with the packet's length.
    explicit XmpPacket(std::string_view packet);

    /// The first value in the packet, without white space around it. Absent when there is none, or when it
    /// has more than 1,024 bytes.
    const std::optional<std::string>& operator[](XmpProperty property) const {
        return values_[static_cast<std::size_t>(property)];
    }

private:
    static constexpr std::size_t propertyCount = 11;

    class Parsing;

    std::array<std::optional<std::string>, propertyCount> values_;
};

} // namespace lumeo
