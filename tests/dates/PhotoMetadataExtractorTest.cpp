#include "dates/PhotoMetadataExtractor.h"

#include "media/photo/PhotoReader.h"
#include "platform/DateText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace lumeo {
namespace {

using ::testing::Eq;
using ::testing::Optional;

std::optional<Instant> dateOf(const std::string& text) {
    PhotoProperties properties;
    properties.exif.dateTimeOriginal = text;
    return PhotoMetadataExtractor::fromProperties(properties).dateTimeOriginal;
}

TEST(PhotoMetadataExtractorTest, readsWallClockAndZonedDates) {
    const auto wallClock = DateText::parseExif("2021:03:14 15:30:45");
    ASSERT_TRUE(wallClock);
    EXPECT_EQ(dateOf("2021:03:14 15:30:45"), wallClock);
    EXPECT_EQ(dateOf(" \t2021:03:14 15:30:45\r\n"), wallClock);
    EXPECT_EQ(dateOf("2021-03-14T15:30:45.500Z"), DateText::parseIso8601("2021-03-14T15:30:45.500Z"));
    EXPECT_TRUE(dateOf("2021-03-14T15:30:45.500Z"));
    for (const char* const unset : {"", "   ", "0000:00:00 00:00:00", "    :  :     :  :  ", "2021:03:14"}) {
        EXPECT_FALSE(dateOf(unset)) << unset;
    }
}

TEST(PhotoMetadataExtractorTest, trimsCameraTextsAndMakesThemUtf8) {
    PhotoProperties properties;
    properties.tiff.make = "  \xC2\xA0";
    properties.tiff.model = "Model 1 \n";
    properties.exif.lensModel = "50mm \xB5";
    const auto result = PhotoMetadataExtractor::fromProperties(properties);
    EXPECT_THAT(result.cameraMake, Optional(Eq("")));
    EXPECT_THAT(result.cameraModel, Optional(Eq("Model 1")));
    EXPECT_THAT(result.lensModel, Optional(Eq("50mm \xEF\xBF\xBD")));
}

TEST(PhotoMetadataExtractorTest, wantsAPositionWholeAndSignsIt) {
    PhotoProperties properties;
    properties.gps = {48.85, "S", 2.35, "w"};
    auto result = PhotoMetadataExtractor::fromProperties(properties);
    EXPECT_TRUE(result.hasGPS);
    EXPECT_THAT(result.gpsLatitude, Optional(-48.85));
    EXPECT_THAT(result.gpsLongitude, Optional(2.35)) << "only the capital letter turns the sign";
    properties.gps.longitudeRef.reset();
    result = PhotoMetadataExtractor::fromProperties(properties);
    EXPECT_FALSE(result.hasGPS || result.gpsLatitude || result.gpsLongitude);
}

} // namespace
} // namespace lumeo
