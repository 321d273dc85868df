#include "dates/FilenameDateParser.h"
#include "platform/LocalCalendar.h"
#include "support/SystemSettings.h"

#include <string>

#include <gtest/gtest.h>

namespace lumeo {
namespace {

/// The wall time of a name's date. All fields are zero when the name has no date.
WallTime wallTimeIn(std::string_view name) {
    const std::optional<Instant> date = FilenameDateParser::parseDate(name);
    return date ? LocalCalendar::components(*date) : WallTime{};
}

const WallTime none;
const WallTime afternoon{2021, 3, 14, 15, 30, 45};
const WallTime noon{2021, 3, 14, 12, 0, 0};

TEST(FilenameDateParserTest, readsTheTimeThatCamerasAndAppsWrite) {
    for (const char* name :
         {"IMG_20210314_153045.jpg", "20210314_153045.mp4", "VID-20210314-153045.MOV",
          "PXL_20210314_153045~2.jpg", "20210314 153045.jpg", "2021-03-14 15.30.45.heic",
          "2021-03-14_15-30-45.jpg", "PXL 2021.03.14T15:30:45.jpg", "2021_03_14t15_30_45(1).jpg",
          "Screenshot 2021-03-14 at 15.30.45.png", "screenshot  2021_03_14 15-30-45.png",
          "MyScreenshot 2021-03-14 AT 15.30.451.png", "WhatsApp Image 2021-03-14 at 15.30.45.jpeg",
          "WHATSAPP VIDEO 2021-03-14 AT 15.30.45 (2).mp4", "été\n2021-03-14 15.30.45.jpg"}) {
        EXPECT_EQ(wallTimeIn(name), afternoon) << name;
    }
}

TEST(FilenameDateParserTest, aDateAloneIsNoon) {
    for (const char* name :
         {"photo_2021-03-14.jpg", "trip_2021.03.14_beach.jpg", "2021_03-14.x.jpg", "2021-03-14_25-00-00.jpg",
          "2021-03-14_15-60-00.jpg", "2021-03-14 at 15.30.45.jpg"}) {
        EXPECT_EQ(wallTimeIn(name), noon) << name;
    }
}

TEST(FilenameDateParserTest, passesOverWhatIsNoPlausibleDate) {
    for (const char* name : {"",
                             ".jpg",
                             "IMG_1234.jpg",
                             "IMG_2021031415304512.jpg",
                             "IMG_20210314.jpg",
                             "120210314_153045.jpg",
                             "20210314_1530459.jpg",
                             "12021-03-14.jpg",
                             "2021-03-145.jpg",
                             "report.2021.03.14",
                             "1989-12-31.jpg",
                             "2041-01-01.jpg",
                             "2021-13-01_10-00-00.jpg",
                             "2021-00-10.jpg",
                             "2021-01-32.jpg",
                             "20210314_240000.jpg",
                             "2021-03.jpg",
                             "WhatsApp Audio 20210314 at 15.30.45.jpg",
                             "٢٠٢١-٠٣-١٤.jpg",
                             "2021-03-١٤ 15.30.45.jpg"}) {
        EXPECT_EQ(wallTimeIn(name), none) << name;
    }
    EXPECT_EQ(wallTimeIn("1990-01-01.jpg"), (WallTime{1990, 1, 1, 12, 0, 0}));
    EXPECT_EQ(wallTimeIn("2040-12-31.jpg"), (WallTime{2040, 12, 31, 12, 0, 0}));
}

TEST(FilenameDateParserTest, onlyTheFirstMatchOfAPatternCounts) {
    // The first match of the separated form is out of range, so the compact form is tried next.
    EXPECT_EQ(wallTimeIn("2050-01-01_10-00-00 20210314_153045.jpg"), afternoon);
    EXPECT_EQ(wallTimeIn("2050-01-01_10-00-00 2021-03-14_15-30-45.jpg"), none);
    EXPECT_EQ(wallTimeIn("2050-01-01 2021-03-14.jpg"), none);
    // A date with a time wins over a date alone that comes before it.
    EXPECT_EQ(wallTimeIn("2019-01-01 IMG_20210314_153045.jpg"), afternoon);
}

TEST(FilenameDateParserTest, aDayBeyondTheMonthCarriesOver) {
    EXPECT_EQ(wallTimeIn("2021-02-30.jpg"), (WallTime{2021, 3, 2, 12, 0, 0}));
    EXPECT_EQ(wallTimeIn("IMG_20240231_100000.jpg"), (WallTime{2024, 3, 2, 10, 0, 0}));
}

TEST(FilenameDateParserTest, findsDatesBesideBytesThatAreNoText) {
    EXPECT_EQ(wallTimeIn("caf\xE9_2021-03-14\xFF.jpg"), noon);
    EXPECT_EQ(wallTimeIn("\xF0\x9F IMG_20210314_153045\xC3.jpg"), afternoon);
    EXPECT_EQ(wallTimeIn("\xE9\xE8 2021\xE9 03 14 99.jpg"), none);
    EXPECT_EQ(wallTimeIn(std::string(4096, '\xFF').append("20210314_153045.jpg")), afternoon);
    // A time in digits of other scripts is ignored, so the time is noon.
    EXPECT_EQ(wallTimeIn("2021-03-14 ١٥.٣٠.٤٥.jpg"), noon);
}

TEST(FilenameDateParserTest, readsInTheUsersZone) {
    const ScopedTimeZone tokyo("Asia/Tokyo");
    const auto inTokyo = FilenameDateParser::parseDate("IMG_20210328_023000.jpg");
    const ScopedTimeZone berlin("Europe/Berlin");
    const auto inBerlin = FilenameDateParser::parseDate("IMG_20210328_023000.jpg");
    ASSERT_TRUE(inTokyo && inBerlin);
    EXPECT_EQ(*inBerlin - *inTokyo, std::chrono::hours(8));
    EXPECT_EQ(LocalCalendar::components(*inBerlin), (WallTime{2021, 3, 28, 3, 30, 0})) << "skipped time";
}

} // namespace
} // namespace lumeo
