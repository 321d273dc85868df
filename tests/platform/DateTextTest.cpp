#include "platform/DateText.h"
#include "support/SystemSettings.h"

#include <chrono>

#include <gtest/gtest.h>

namespace lumeo {
namespace {

using namespace std::chrono;
using namespace std::chrono_literals;

Instant utc(year_month_day day, microseconds timeOfDay = 0us) {
    return sys_days(day) + timeOfDay;
}

/// Makes New York the zone for reading photos in this process. It cannot be changed later.
class DateTextTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        const ScopedTimeZone newYork("America/New_York");
        EXPECT_TRUE(DateText::parsePhoto("2021:03:14 15:30:45"));
    }
};

TEST_F(DateTextTest, photosAreReadInTheZoneOfTheFirstCall) {
    for (const char* later : {"Asia/Tokyo", "America/New_York"}) {
        const ScopedTimeZone zone(later);
        EXPECT_EQ(DateText::parsePhoto("2021:03:14 15:30:45"), utc(2021y / 3 / 14, 19h + 30min + 45s));
        EXPECT_EQ(DateText::parsePhoto("2021:01:14"), utc(2021y / 1 / 14, 17h));
        EXPECT_EQ(DateText::photoClock({2021, 1, 14, 15, 30, 45}), utc(2021y / 1 / 14, 20h + 30min + 45s));
    }
    EXPECT_EQ(DateText::parsePhoto("2021:03:14 02:30:00"), utc(2021y / 3 / 14, 7h + 30min)) << "skipped time";
    EXPECT_EQ(DateText::parsePhoto(std::string_view("2021:03:14 15:30:45\0", 20)), std::nullopt);
    EXPECT_EQ(DateText::photoClock({2021, 2, 30, 0, 0, 0}), std::nullopt);
}

TEST_F(DateTextTest, isoTextCarriesItsOffset) {
    const Instant moment = utc(2021y / 3 / 14, 14h + 30min + 45s);
    EXPECT_EQ(DateText::parseIso8601("2021-03-14T14:30:45Z"), moment);
    EXPECT_EQ(DateText::parseIso8601("2021-03-14T15:30:45+01:00"), moment);
    EXPECT_EQ(DateText::parseIso8601("2021-03-14T05:00:45-09:30"), moment);
    EXPECT_EQ(DateText::parseIso8601("2021-03-14T15:30:45.123+01:00"), moment + 123ms);
    EXPECT_EQ(DateText::parseIso8601("2021-03-14T14:30:45.000001999Z"), moment + 1us);
    EXPECT_EQ(DateText::parseIso8601("2020-12-31T23:30:00-01:00"), utc(2021y / 1 / 1, 30min));
    for (const char* text :
         {"", "2021-03-14T15:30:45", "2021-03-14T15:30:45.Z", "2021-03-14T15:30:45.0000000001Z",
          "2021-03-14T15:30:45,5Z", "2021-03-14 15:30:45Z", "2021-03-14t15:30:45z", "2021-03-14T15:30Z",
          "20210314T153045Z", "2021-02-30T15:30:45Z", "2021-03-14T15:30:45+24:00",
          "2021-03-14T15:30:45+01:60", "2021-03-14T15:30:45+01", "2021-03-14T15:30:45 +01:00",
          "2021-03-14T15:30:45Z ", "2021-03-14T15:30:45GMT"}) {
        EXPECT_EQ(DateText::parseIso8601(text), std::nullopt) << text;
    }
}

TEST_F(DateTextTest, movieTextsWithAndWithoutZone) {
    const Instant moment = utc(2019y / 7 / 1, 6h);
    for (const char* text :
         {"2019-07-01T08:00:00+0200", "2019-07-01T08:00:00+02:00", "2019-07-01T06:00:00GMT"}) {
        EXPECT_EQ(DateText::parseZoned(text), moment) << text;
    }
    for (const char* text :
         {"2019-07-01T08:00:00", "2019-07-01T08:00:00.5+0200", "2019-07-01 08:00:00+0200"}) {
        EXPECT_EQ(DateText::parseZoned(text), std::nullopt) << text;
    }
    const ScopedTimeZone tokyo("Asia/Tokyo");
    EXPECT_EQ(DateText::parsePlainUtc("2019-07-01 06:00:00"), moment);
    EXPECT_EQ(DateText::parsePlainUtc("2019-07-01 06:00:00Z"), std::nullopt);
    EXPECT_EQ(DateText::parsePlainUtc("2019-06-31 06:00:00"), std::nullopt);
}

TEST_F(DateTextTest, writesWholeSecondsInUtc) {
    const ScopedTimeZone tokyo("Asia/Tokyo");
    EXPECT_EQ(DateText::iso8601Utc(utc(2021y / 3 / 14, 15h + 30min + 45s + 999'999us)),
              "2021-03-14T15:30:45Z");
    EXPECT_EQ(DateText::iso8601Utc(utc(1970y / 1 / 1) - 1us), "1969-12-31T23:59:59Z");
    EXPECT_EQ(DateText::iso8601Utc(utc(987y / 1 / 2)), "0987-01-02T00:00:00Z");
}

} // namespace
} // namespace lumeo
