#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumeo {

enum class XmpProperty : std::size_t {
    dateTimeOriginal,
    dateTimeDigitized,
    modifyDate,
    make,
    model,
    lensModel,
    lens,
    gpsLatitude,
    gpsLongitude,
};

/// Finds the few properties of an XMP packet that a photo is dated and described by. They are all plain
/// texts, either attributes of a description or elements in it; descriptions within other properties,
/// such as those of a collage's parts, are passed over. Reads UTF-8, once from front to back: general
/// readers of XMP take time with the square of a long packet's properties.
class XmpScan {
public:
    explicit XmpScan(std::string_view packet);

    /// The first value that the packet gives; absent when it has none.
    const std::optional<std::string>& operator[](XmpProperty property) const {
        return values_[static_cast<std::size_t>(property)];
    }

private:
    struct Attribute {
        std::string_view name;
        std::string_view value;
    };
    static constexpr std::size_t propertyCount = 9;
    static constexpr std::size_t namespaceCount = 6;

    void scan(std::string_view packet);
    void startElement(std::string_view tag);
    void endElement();
    void readAttributes(std::string_view text);
    void declareNamespaces();
    [[nodiscard]] bool isNamed(std::string_view name, std::size_t nameSpace,
                               std::string_view localName) const;
    [[nodiscard]] std::optional<XmpProperty> property(std::string_view name) const;
    void keep(XmpProperty property, std::string_view rawText);

    std::array<std::optional<std::string>, propertyCount> values_;
    std::array<std::string_view, namespaceCount> prefixes_;
    std::vector<Attribute> attributes_; ///< of the element that begins
    std::size_t depth_ = 0;
    std::size_t rdfDepth_ = 0; ///< of the element around all descriptions; 0 while none is open
    std::optional<XmpProperty> open_;
    std::string_view openText_;
};

} // namespace lumeo
