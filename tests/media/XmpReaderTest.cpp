#include "media/photo/XmpReader.h"

#include "samples/TinyPhotos.h"
#include "support/Damage.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace lumeo {
namespace {

using ::testing::DoubleNear;
using ::testing::Eq;
using ::testing::Optional;

PhotoProperties propertiesOf(std::string_view packet) {
    PhotoProperties properties;
    fillFromXmp(packet, properties);
    return properties;
}

TEST(XmpReaderTest, readsPositionsWholeOrNotAtAll) {
    const auto gpsOf = [](const std::string& latitude, const std::string& longitude) {
        return propertiesOf(
                   tinyXmp("exif:GPSLatitude='" + latitude + "' exif:GPSLongitude='" + longitude + "'"))
            .gps;
    };
    const auto gps = gpsOf("48,30.6N", "2,15,36W");
    EXPECT_THAT(gps.latitude, Optional(DoubleNear(48.51, 1e-9)));
    EXPECT_THAT(gps.longitude, Optional(DoubleNear(2.26, 1e-9)));
    EXPECT_THAT(gps.longitudeRef, Optional(Eq("W")));
    for (const char* const wrong :
         {"", "N", "48", "48,x N", "48,1,2,3N", "-48,1N", "48,nanN", "infN", "48,30.6E"}) {
        EXPECT_EQ(gpsOf(wrong, "2,15,36W"), PhotoProperties::Gps{}) << wrong;
    }
}

TEST(XmpReaderTest, readsAttributesAndElementsUnderAnyPrefix) {
    const PhotoProperties properties =
        propertiesOf(R"(<?xpacket begin="" id="x"?><!-- <tiff:Make>no</tiff:Make> -->
        <x:xmpmeta xmlns:x="adobe:ns:meta/">
        <r:RDF xmlns:r="http://www.w3.org/1999/02/22-rdf-syntax-ns#">
          <r:Description r:about="a > b" xmlns:t="http://ns.adobe.com/tiff/1.0/"
            t:Model = 'M &amp; &quot;1&#xE9;'/>
          <r:Description xmlns:t="http://ns.adobe.com/tiff/1.0/"
            xmlns:aux="http://ns.adobe.com/exif/1.0/aux/">
            <t:Artist><r:Seq><r:li>t:Make</r:li></r:Seq></t:Artist>
            <t:Make>Ma&lt;ker</t:Make><t:Make>Second</t:Make>
            <aux:LensID>7</aux:LensID><aux:Lens>50mm</aux:Lens>
          </r:Description></r:RDF></x:xmpmeta>)");
    EXPECT_THAT(properties.tiff.make, Optional(Eq("Ma<ker")));
    EXPECT_THAT(properties.tiff.model, Optional(Eq("M & \"1\xC3\xA9")));
    EXPECT_THAT(properties.exif.lensModel, Optional(Eq("50mm")));
}

/// A description around `elements`, with the usual prefixes.
std::string described(const std::string& elements, const std::string& before = "") {
    return before + R"(<rdf:RDF xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#"
        xmlns:exif="http://ns.adobe.com/exif/1.0/" xmlns:tiff="http://ns.adobe.com/tiff/1.0/"
        xmlns:xmpMM="http://ns.adobe.com/xap/1.0/mm/"><rdf:Description>)" +
           elements + "</rdf:Description></rdf:RDF>";
}

/// A collage lists its parts with their own dates and cameras.
TEST(XmpReaderTest, passesOverDescriptionsOfOtherThings) {
    const PhotoProperties properties = propertiesOf(described(R"(<xmpMM:Pantry><rdf:Bag><rdf:li>
        <rdf:Description tiff:Make="Other" exif:DateTimeOriginal="1999-01-01T00:00:00">
        <tiff:Model>Other</tiff:Model></rdf:Description></rdf:li></rdf:Bag></xmpMM:Pantry>
        <tiff:Make>Maker</tiff:Make>)") + "<tiff:Model>outside</tiff:Model>");
    EXPECT_THAT(properties.tiff.make, Optional(Eq("Maker")));
    EXPECT_FALSE(properties.tiff.model);
    EXPECT_FALSE(properties.exif.dateTimeOriginal);
}

TEST(XmpReaderTest, readsWhatXmlAllowsAndNoEntities) {
    const std::string make = "<tiff:Make>Maker</tiff:Make>";
    for (const std::string& elements :
         {make, "<tiff:Artist><![CDATA[ > <tiff:Make>no]]></tiff:Artist>" + make,
          std::string("<tiff:Make><![CDATA[Maker]]></tiff:Make>"),
          std::string("<tiff:Make>Ma<!-- not the end --><?nor this?>ker</tiff:Make>"),
          // A value with qualifiers, in the four forms in which it can be written.
          std::string("<tiff:Make rdf:parseType='Resource'><xmpMM:a>no</xmpMM:a>"
                      "<rdf:value>Maker</rdf:value></tiff:Make>"),
          std::string("<tiff:Make><rdf:Description><rdf:value>Maker</rdf:value><xmpMM:a>no</xmpMM:a>"
                      "</rdf:Description></tiff:Make>"),
          std::string("<tiff:Make><rdf:Description rdf:value='Maker' xmpMM:a='no'/></tiff:Make>"),
          std::string("<tiff:Make rdf:value='Maker' xmpMM:a='no'/>"), make + "<tiff:Model>cut \xFF here"}) {
        EXPECT_THAT(propertiesOf(described(elements)).tiff.make, Optional(Eq("Maker"))) << elements;
    }
    EXPECT_FALSE(
        propertiesOf(described("<tiff:Make>&a;</tiff:Make>", "<!DOCTYPE r [<!ENTITY a 'x'>]>")).tiff.make);
    EXPECT_FALSE(propertiesOf(described("<tiff:Make>" + std::string(1'025, 'x') + "</tiff:Make>")).tiff.make);

    std::string deep;
    for (int i = 0; i < 1'000'000; ++i) {
        deep += "<a>";
    }
    EXPECT_FALSE(propertiesOf(deep + described(make)).tiff.make);
}

TEST(XmpReaderTest, bearsPacketsCutAndDamagedAnywhere) {
    const std::string packet = tinyXmp(R"(tiff:Make="A&amp;B" exif:GPSLatitude="48,30.6N")");
    damageEverywhere(packet, std::string_view("<>/\"&\0", 6),
                     [](const std::string& damaged) { propertiesOf(damaged); });
}

} // namespace
} // namespace lumeo
