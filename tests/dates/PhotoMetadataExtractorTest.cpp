#include "dates/PhotoMetadataExtractor.h"

#include "media/photo/PhotoReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace lumeo {
namespace {

using ::testing::Eq;
using ::testing::Optional;

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
