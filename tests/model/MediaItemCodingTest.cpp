#include "model/MediaItemCoding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace lumeo {
namespace {

using testing::SizeIs;

MediaItem fullItem() {
    const Instant day = codedEpoch + std::chrono::hours(24);
    MediaItem item;
    item.id = *Uuid::fromText("00112233-4455-6677-8899-AABBCCDDEEFF");
    item.sourceURL = FilePath("/media/card/DCIM/Été 100%.JPG");
    item.utType = SharedText("public.jpeg");
    item.mediaType = MediaType::photo;
    item.dateSource = DateSourceType::exifDateTimeOriginal;
    item.dateConfidence = DateConfidence::high;
    item.hasGPS = true;
    item.fileSize = 9'007'199'254'740'993; // too large for a double to hold exactly
    item.filesystemCreationDate = day;
    item.filesystemModificationDate = day + std::chrono::microseconds(123'457);
    item.metadataCaptureDate = codedEpoch - std::chrono::hours(100'000);
    item.metadataCreateDate = day;
    item.videoCreationDate = day;
    item.filenameDerivedDate = day;
    item.resolvedDate = codedEpoch - std::chrono::hours(100'000);
    item.dateSuspiciousWarning = SharedText("Date is set in the future");
    item.cameraMake = SharedText("Canon");
    item.cameraModel = SharedText("");
    item.lensModel = SharedText("EF 50mm \"f/1.8\"");
    item.pixelWidth = 6000;
    item.pixelHeight = 4000;
    item.durationSeconds = 1.5;
    item.gpsLatitude = -33.8567844;
    item.gpsLongitude = 151.2152967;
    item.sha256Hash = std::string(64, 'a');
    item.exactDuplicateGroupID = Uuid::random();
    item.probableDuplicateGroupID = Uuid::random();
    item.plannedDestinationURL = FilePath("/archive/2001/01/\xFF\nname.jpg");
    item.scanWarnings = {"Date is set in the future"};
    item.scanErrors = {"one", "two"};
    return item;
}

MediaItem bareItem() {
    MediaItem item;
    item.id = Uuid::random();
    item.sourceURL = FilePath("/README");
    return item;
}

std::vector<std::string> keysOf(const Json& json) {
    std::vector<std::string> keys;
    for (const auto& [key, value] : json.items()) {
        keys.push_back(key);
    }
    return keys;
}

TEST(MediaItemCoding, ReadsBackWhatItWroteThroughText) {
    MediaItem oddlyNamed = bareItem();
    oddlyNamed.sourceURL = FilePath("/disk/caf\xE9\n.jpg");
    for (const MediaItem& item : {fullItem(), bareItem(), oddlyNamed}) {
        const Decoded<MediaItem> decoded = decodeMediaItem(Json::parse(encode(item).dump()));
        ASSERT_TRUE(decoded) << decoded.error().message();
        EXPECT_EQ(*decoded, item);
    }
    EXPECT_EQ(encode(oddlyNamed)["fileName"], "caf\uFFFD\n.jpg");
    const Json json = encode(fullItem());
    EXPECT_THAT(keysOf(json), SizeIs(32));
    EXPECT_EQ(json["id"], "00112233-4455-6677-8899-AABBCCDDEEFF");
    EXPECT_EQ(json["sourceURL"], "file:///media/card/DCIM/%C3%89t%C3%A9%20100%25.JPG");
    EXPECT_EQ(json["filesystemCreationDate"], 86'400.0);
}

TEST(MediaItemCoding, TakesNullForAbsentAndRefusesARecordThatLacksARequiredKey) {
    const Json whole = encode(bareItem());
    Json withNulls = whole;
    withNulls["utType"] = withNulls["pixelWidth"] = withNulls["plannedDestinationURL"] = nullptr;
    EXPECT_EQ(*decodeMediaItem(withNulls), *decodeMediaItem(whole));
    EXPECT_THAT(keysOf(whole), SizeIs(11));
    for (const std::string& key : keysOf(whole)) {
        Json json = whole;
        json[key] = nullptr;
        EXPECT_FALSE(decodeMediaItem(json)) << key;
        json.erase(key);
        EXPECT_EQ(decodeMediaItem(json).error(), (DecodingError{key, "is missing"}));
    }
}

TEST(MediaItemCoding, RefusesWrongTypesAndUnknownTexts) {
    const Json text = "text";
    const std::vector<std::pair<std::string, Json>> faults = {
        {"id", "not-an-identifier"},
        {"sourceURL", "/plain/path"},
        {"fileName", 1},
        {"mediaType", "Photo"},
        {"dateConfidence", 3},
        {"fileSize", 3.5},
        {"fileSize", 1e19},
        {"fileSize", 18'446'744'073'709'551'615U},
        {"hasGPS", 0},
        {"resolvedDate", "2001-01-01"},
        {"durationSeconds", text},
        {"plannedDestinationURL", "https://example.org/a.jpg"},
        {"scanWarnings", text},
        {"scanErrors", Json::array({1})}};
    for (const auto& [key, value] : faults) {
        Json json = encode(fullItem());
        json[key] = value;
        const Decoded<MediaItem> decoded = decodeMediaItem(json);
        ASSERT_FALSE(decoded) << key << " = " << value;
        EXPECT_EQ(decoded.error().key, key);
    }
    EXPECT_FALSE(decodeMediaItem(Json::array()));
    EXPECT_FALSE(decodeMediaItem(Json(nullptr)));
}

TEST(JsonReader, TakesWholeNumbersHoweverTheyAreWritten) {
    const Json json = Json::parse(R"({"a": 3.0, "b": 9223372036854775807, "c": 9223372036854775808})");
    JsonReader reader(json);
    std::int64_t number = 0;
    reader.require("a", number);
    EXPECT_EQ(number, 3);
    reader.require("b", number);
    EXPECT_EQ(number, std::numeric_limits<std::int64_t>::max());
    EXPECT_FALSE(reader.error());
    reader.require("c", number);
    EXPECT_TRUE(reader.error());
}

TEST(JsonWriter, WritesNothingThatJsonCannotHold) {
    JsonWriter writer;
    writer.set("broken", "a\xFFz");
    writer.set("nan", std::nan(""));
    writer.set("infinite", std::optional(std::numeric_limits<double>::infinity()));
    EXPECT_EQ(std::move(writer).take().dump(), "{\"broken\":\"a\uFFFDz\"}");
}

} // namespace
} // namespace lumeo
