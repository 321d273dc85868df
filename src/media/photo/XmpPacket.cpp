#include "media/photo/XmpPacket.h"

#include "platform/Utf8Text.h"

#include <algorithm>
#include <memory>
#include <type_traits>

#include <expat.h>

namespace lumeo {

namespace {

/// Names in the form of the parser: the name space, a line feed, the name.
constexpr char nameSeparator = '\n';
constexpr std::string_view rdfElement = "http://www.w3.org/1999/02/22-rdf-syntax-ns#\nRDF";
constexpr std::string_view rdfDescription = "http://www.w3.org/1999/02/22-rdf-syntax-ns#\nDescription";
constexpr std::string_view rdfValue = "http://www.w3.org/1999/02/22-rdf-syntax-ns#\nvalue";

/// In the order of XmpProperty.
constexpr std::array<std::string_view, 11> propertyNames{
    "http://ns.adobe.com/exif/1.0/\nDateTimeOriginal",
    "http://ns.adobe.com/exif/1.0/\nDateTimeDigitized",
    "http://ns.adobe.com/photoshop/1.0/\nDateCreated",
    "http://ns.adobe.com/xap/1.0/\nCreateDate",
    "http://ns.adobe.com/xap/1.0/\nModifyDate",
    "http://ns.adobe.com/tiff/1.0/\nMake",
    "http://ns.adobe.com/tiff/1.0/\nModel",
    "http://cipa.jp/exif/1.0/\nLensModel",
    "http://ns.adobe.com/exif/1.0/aux/\nLens",
    "http://ns.adobe.com/exif/1.0/\nGPSLatitude",
    "http://ns.adobe.com/exif/1.0/\nGPSLongitude",
};

constexpr std::size_t longestXmpText = 1'024;
constexpr std::size_t deepest = 100;

struct FreeParser {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};
using Parser = std::unique_ptr<std::remove_pointer_t<XML_Parser>, FreeParser>;

} // namespace

class XmpPacket::Parsing {
public:
    explicit Parsing(XmpPacket& packet)
        : packet_(packet), parser_(XML_ParserCreateNS(nullptr, nameSeparator)) {}

    void parse(std::string_view text) {
        if (!parser_) {
            return;
        }
        XML_SetUserData(parser_.get(), this);
        XML_SetElementHandler(parser_.get(), startElement, endElement);
        XML_SetCharacterDataHandler(parser_.get(), characters);
        XML_SetStartDoctypeDeclHandler(parser_.get(), startDocumentType);
        constexpr int isWhole = 1;
        // Parsing ends at an error, and the values before it are kept.
        XML_Parse(parser_.get(), text.data(), static_cast<int>(text.size()), isWhole);
    }

private:
    static Parsing& self(void* data) { return *static_cast<Parsing*>(data); }

    static void XMLCALL startElement(void* data, const XML_Char* name, const XML_Char** attributes) {
        self(data).begin(name, attributes);
    }
    static void XMLCALL endElement(void* data, const XML_Char* /*name*/) { self(data).end(); }
    static void XMLCALL characters(void* data, const XML_Char* text, int length) {
        self(data).append({text, static_cast<std::size_t>(length)});
    }
    static void XMLCALL startDocumentType(void* data, const XML_Char* /*name*/, const XML_Char* /*system*/,
                                          const XML_Char* /*publicName*/, int /*hasSubset*/) {
        self(data).stop();
    }

    void stop() { XML_StopParser(parser_.get(), XML_FALSE); }

    void begin(std::string_view name, const XML_Char** attributes) {
        if (++depth_ > deepest) {
            stop();
            return;
        }
        isText_ = false; // a property with elements in it is not plain text
        if (rdfDepth_ == 0) {
            rdfDepth_ = name == rdfElement ? depth_ : 0;
            return;
        }
        const std::size_t level = depth_ - rdfDepth_;
        if (level == 1) {
            keepProperties(attributes);
        } else if (level == 2) {
            open_ = propertyNamed(name);
            beginText();
            keepValue(attributes);
        } else if (level <= 4 && name == rdfValue) {
            beginText();
        } else if (level == 3 && name == rdfDescription) {
            keepValue(attributes);
        }
    }

    void end() {
        if (isText_) {
            keep(*open_, text_);
            isText_ = false;
        }
        if (depth_ == rdfDepth_ + 2) {
            open_.reset();
        } else if (depth_ == rdfDepth_) {
            rdfDepth_ = 0;
        }
        --depth_;
    }

    void beginText() {
        isText_ = open_.has_value();
        text_.clear();
    }

    void keepProperties(const XML_Char** attributes) {
        for (; *attributes != nullptr; attributes += 2) {
            if (const auto property = propertyNamed(attributes[0])) {
                keep(*property, attributes[1]);
            }
        }
    }

    /// A property with qualifiers may have its value as an attribute.
    void keepValue(const XML_Char** attributes) {
        for (; open_ && *attributes != nullptr; attributes += 2) {
            if (attributes[0] == rdfValue) {
                keep(*open_, attributes[1]);
            }
        }
    }

    void append(std::string_view text) {
        if (isText_ && text_.size() <= longestXmpText) {
            text_ += text;
        }
    }

    static std::optional<std::size_t> propertyNamed(std::string_view name) {
        const auto* const found = std::ranges::find(propertyNames, name);
        return found == propertyNames.end()
                   ? std::nullopt
                   : std::optional(static_cast<std::size_t>(found - propertyNames.begin()));
    }

    void keep(std::size_t property, std::string_view text) {
        std::optional<std::string>& value = packet_.values_[property];
        if (!value && text.size() <= longestXmpText) {
            value = trimmingWhitespace(text); // the text of an element may be on separate lines
        }
    }

    XmpPacket& packet_;
    Parser parser_;
    std::size_t depth_ = 0;
    std::size_t rdfDepth_ = 0;        ///< of the element around all descriptions; 0 when none is open
    std::optional<std::size_t> open_; ///< the wanted property that is being read
    bool isText_ = false;             ///< the following text is its value
    std::string text_;
};

XmpPacket::XmpPacket(std::string_view packet) {
    constexpr std::size_t longestPacket = 16 * 1024 * 1024;
    packet = packet.substr(0, longestPacket);
    packet.remove_prefix(std::min(packet.find('<'), packet.size()));
    Parsing(*this).parse(packet);
}

} // namespace lumeo
