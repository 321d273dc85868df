#include "media/photo/XmpPacket.h"

#include "platform/Utf8Text.h"

#include <algorithm>
#include <memory>
#include <type_traits>

#include <expat.h>

namespace lumeo {

namespace {

/// Names as the parser gives them: the name space, a line feed, the name.
constexpr char nameSeparator = '\n';
constexpr std::string_view rdfElement = "http://www.w3.org/1999/02/22-rdf-syntax-ns#\nRDF";

/// In the order of XmpProperty.
constexpr std::array<std::string_view, 9> propertyNames{
    "http://ns.adobe.com/exif/1.0/\nDateTimeOriginal",
    "http://ns.adobe.com/exif/1.0/\nDateTimeDigitized",
    "http://ns.adobe.com/xap/1.0/\nModifyDate",
    "http://ns.adobe.com/tiff/1.0/\nMake",
    "http://ns.adobe.com/tiff/1.0/\nModel",
    "http://cipa.jp/exif/1.0/\nLensModel",
    "http://ns.adobe.com/exif/1.0/aux/\nLens",
    "http://ns.adobe.com/exif/1.0/\nGPSLatitude",
    "http://ns.adobe.com/exif/1.0/\nGPSLongitude",
};

constexpr std::size_t longestText = 1'024;
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
        // An error ends it: what was read before stands.
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
        open_.reset(); // a property with elements in it is no plain text
        if (rdfDepth_ == 0 && name == rdfElement) {
            rdfDepth_ = depth_;
        } else if (rdfDepth_ != 0 && depth_ == rdfDepth_ + 1) {
            for (const XML_Char** at = attributes; *at != nullptr; at += 2) {
                if (const auto property = propertyNamed(at[0])) {
                    keep(*property, at[1]);
                }
            }
        } else if (rdfDepth_ != 0 && depth_ == rdfDepth_ + 2) {
            open_ = propertyNamed(name);
            text_.clear();
        }
    }

    void end() {
        if (open_) {
            keep(*open_, text_);
            open_.reset();
        }
        if (depth_ == rdfDepth_) {
            rdfDepth_ = 0;
        }
        --depth_;
    }

    void append(std::string_view text) {
        if (open_ && text_.size() <= longestText) {
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
        if (!value && text.size() <= longestText) {
            value = trimmingWhitespace(text); // the text of an element may stand on lines of its own
        }
    }

    XmpPacket& packet_;
    Parser parser_;
    std::size_t depth_ = 0;
    std::size_t rdfDepth_ = 0; ///< of the element around all descriptions; 0 while none is open
    std::optional<std::size_t> open_;
    std::string text_;
};

XmpPacket::XmpPacket(std::string_view packet) {
    constexpr std::size_t longestPacket = 16 * 1024 * 1024;
    packet = packet.substr(0, longestPacket);
    packet.remove_prefix(std::min(packet.find('<'), packet.size()));
    Parsing(*this).parse(packet);
}

} // namespace lumeo
