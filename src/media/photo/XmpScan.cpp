#include "media/photo/XmpScan.h"

#include "platform/Utf8Text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <utility>

#include <unicode/unistr.h>

namespace lumeo {

namespace {

enum Namespace : std::size_t { rdf, exif, exifEx, xmp, tiff, aux };

struct NamespaceName {
    std::string_view prefix; ///< the usual one; a packet may declare another
    std::string_view uri;
};

constexpr std::array<NamespaceName, 6> namespaces{{
    {"rdf", "http://www.w3.org/1999/02/22-rdf-syntax-ns#"},
    {"exif", "http://ns.adobe.com/exif/1.0/"},
    {"exifEX", "http://cipa.jp/exif/1.0/"},
    {"xmp", "http://ns.adobe.com/xap/1.0/"},
    {"tiff", "http://ns.adobe.com/tiff/1.0/"},
    {"aux", "http://ns.adobe.com/exif/1.0/aux/"},
}};

/// In the order of XmpProperty.
constexpr std::array<std::pair<Namespace, std::string_view>, 9> propertyNames{{
    {exif, "DateTimeOriginal"},
    {exif, "DateTimeDigitized"},
    {xmp, "ModifyDate"},
    {tiff, "Make"},
    {tiff, "Model"},
    {exifEx, "LensModel"},
    {aux, "Lens"},
    {exif, "GPSLatitude"},
    {exif, "GPSLongitude"},
}};

constexpr std::string_view whitespace = " \t\r\n";
constexpr std::size_t longestText = 1'024;

/// What follows `end`, or nothing when it does not occur.
std::string_view behind(std::string_view text, std::string_view end) {
    const std::size_t at = text.find(end);
    return at == std::string_view::npos ? std::string_view{} : text.substr(at + end.size());
}

/// The length of a tag up to its ">", which may also stand inside a quoted value.
std::size_t tagLength(std::string_view text) {
    std::size_t at = text.find_first_of(">\"'");
    while (at != std::string_view::npos && text[at] != '>') {
        const std::size_t closing = text.find(text[at], at + 1);
        at = closing == std::string_view::npos ? closing : text.find_first_of(">\"'", closing + 1);
    }
    return at;
}

/// The character that a reference such as "amp" or "#xE9" stands for; empty for an unknown one.
std::string referenced(std::string_view name) {
    constexpr std::array<std::pair<std::string_view, char>, 5> named{
        {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}}};
    for (const auto& [known, character] : named) {
        if (name == known) {
            return {character};
        }
    }
    if (!name.starts_with('#')) {
        return {};
    }
    const bool isHex = name.starts_with("#x");
    name.remove_prefix(isHex ? 2 : 1);
    std::uint32_t code = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), code, isHex ? 16 : 10);
    constexpr std::uint32_t last = 0x10FFFF;
    if (error != std::errc{} || end != name.data() + name.size() || code == 0 || code > last) {
        return {};
    }
    std::string text;
    return icu::UnicodeString(static_cast<UChar32>(code)).toUTF8String(text);
}

std::string withReferencesResolved(std::string_view raw) {
    std::string text;
    while (!raw.empty()) {
        const std::size_t reference = raw.find('&');
        text += raw.substr(0, reference);
        const std::size_t end = reference == std::string_view::npos ? reference : raw.find(';', reference);
        if (end == std::string_view::npos) {
            break;
        }
        text += referenced(raw.substr(reference + 1, end - reference - 1));
        raw.remove_prefix(end + 1);
    }
    return text;
}

} // namespace

XmpScan::XmpScan(std::string_view packet) {
    for (std::size_t i = 0; i < namespaceCount; ++i) {
        prefixes_[i] = namespaces[i].prefix;
    }
    scan(packet);
}

void XmpScan::scan(std::string_view packet) {
    while (!packet.empty()) {
        const std::size_t tag = packet.find('<');
        if (open_) {
            openText_ = packet.substr(0, tag);
        }
        if (tag == std::string_view::npos) {
            return;
        }
        packet.remove_prefix(tag);
        if (packet.starts_with("<!--")) {
            packet = behind(packet, "-->");
        } else if (packet.starts_with("<?")) {
            packet = behind(packet, "?>");
        } else if (packet.starts_with("</")) {
            endElement();
            packet = behind(packet, ">");
        } else {
            const std::size_t length = tagLength(packet);
            if (length == std::string_view::npos) {
                return;
            }
            startElement(packet.substr(1, length - 1));
            packet.remove_prefix(length + 1);
        }
    }
}

void XmpScan::startElement(std::string_view tag) {
    const bool isEmpty = tag.ends_with('/');
    tag = tag.substr(0, tag.size() - (isEmpty ? 1 : 0));
    const std::string_view name = tag.substr(0, tag.find_first_of(whitespace));
    ++depth_;
    // A property with elements in it is no plain text.
    open_.reset();
    readAttributes(tag.substr(name.size()));
    declareNamespaces();
    if (rdfDepth_ == 0 && isNamed(name, rdf, "RDF")) {
        rdfDepth_ = depth_;
    } else if (rdfDepth_ != 0 && depth_ == rdfDepth_ + 1) {
        for (const Attribute& attribute : attributes_) {
            if (const auto found = property(attribute.name)) {
                keep(*found, attribute.value);
            }
        }
    } else if (rdfDepth_ != 0 && depth_ == rdfDepth_ + 2) {
        open_ = property(name);
        openText_ = {};
    }
    if (isEmpty) {
        open_.reset();
        endElement();
    }
}

void XmpScan::endElement() {
    if (open_) {
        keep(*open_, openText_);
        open_.reset();
    }
    if (depth_ == rdfDepth_) {
        rdfDepth_ = 0;
    }
    depth_ -= depth_ > 0 ? 1 : 0;
}

void XmpScan::readAttributes(std::string_view text) {
    attributes_.clear();
    while (true) {
        const std::size_t equals = text.find('=');
        const std::size_t quote = text.find_first_of("\"'", equals);
        const std::size_t closing =
            quote == std::string_view::npos ? quote : text.find(text[quote], quote + 1);
        if (closing == std::string_view::npos) {
            return;
        }
        std::string_view name = text.substr(0, equals);
        name.remove_prefix(std::min(name.find_first_not_of(whitespace), name.size()));
        name = name.substr(0, name.find_first_of(whitespace));
        attributes_.push_back({name, text.substr(quote + 1, closing - quote - 1)});
        text.remove_prefix(closing + 1);
    }
}

void XmpScan::declareNamespaces() {
    constexpr std::string_view declaration = "xmlns:";
    for (const Attribute& attribute : attributes_) {
        if (!attribute.name.starts_with(declaration)) {
            continue;
        }
        for (std::size_t i = 0; i < namespaceCount; ++i) {
            if (attribute.value == namespaces[i].uri) {
                prefixes_[i] = attribute.name.substr(declaration.size());
            }
        }
    }
}

bool XmpScan::isNamed(std::string_view name, std::size_t nameSpace, std::string_view localName) const {
    const std::string_view prefix = prefixes_[nameSpace];
    return name.size() == prefix.size() + 1 + localName.size() && name.starts_with(prefix) &&
           name[prefix.size()] == ':' && name.ends_with(localName);
}

std::optional<XmpProperty> XmpScan::property(std::string_view name) const {
    for (std::size_t i = 0; i < propertyCount; ++i) {
        if (isNamed(name, propertyNames[i].first, propertyNames[i].second)) {
            return static_cast<XmpProperty>(i);
        }
    }
    return std::nullopt;
}

void XmpScan::keep(XmpProperty property, std::string_view rawText) {
    std::optional<std::string>& value = values_[static_cast<std::size_t>(property)];
    if (!value && rawText.size() <= longestText) {
        // The text of an element may stand on lines of its own.
        value = trimmingWhitespace(withReferencesResolved(rawText));
    }
}

} // namespace lumeo
