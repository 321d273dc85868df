#include "platform/TextFormat.h"
#include "support/SystemSettings.h"

#include <chrono>
#include <limits>
#include <string_view>

#include <gmock/gmock.h>

namespace lumeo {
namespace {

using namespace std::chrono;
using namespace std::chrono_literals;
using testing::AllOf;
using testing::HasSubstr;

const Instant moment = sys_days(2021y / 3 / 14) + 15h + 30min + 45s;

/// Sets one locale, whatever the locale of the test run is.
struct ScopedLocale {
    explicit ScopedLocale(const char* name) : all("LC_ALL", name) {}
    ScopedEnvironment all;
};

class TextFormatTest : public testing::Test {
protected:
    ScopedTimeZone utc_{"UTC"};
};

TEST_F(TextFormatTest, sizesAreInDecimalUnitsAndCarryIntoTheNextOne) {
    const ScopedLocale english("en_US.UTF-8");
    constexpr std::pair<std::int64_t, std::string_view> expected[] = {
        {0, "Zero KB"},
        {1, "1 byte"},
        {999, "999 bytes"},
        {1'499, "1 KB"},
        {1'500, "2 KB"},
        {999'499, "999 KB"},
        {999'500, "1 MB"},
        {1'250'000, "1.3 MB"},
        {999'950'000, "1 GB"},
        {1'234'567'890, "1.23 GB"},
        {1'500'000'000, "1.5 GB"},
        {2'000'000'000'000'000, "2 PB"},
        {-1'500'000, "-1.5 MB"},
        {std::numeric_limits<std::int64_t>::min(), "-9,223.37 PB"}};
    for (const auto& [bytes, text] : expected) {
        EXPECT_EQ(TextFormat::byteCount(bytes), text) << bytes;
    }
}

TEST_F(TextFormatTest, numbersAndDatesFollowEachTheirLocale) {
    {
        const ScopedLocale german("de_DE.UTF-8");
        EXPECT_EQ(TextFormat::number(1'234'567), "1.234.567");
        EXPECT_THAT(TextFormat::byteCount(0), AllOf(HasSubstr("0"), HasSubstr("KB")));
        EXPECT_EQ(TextFormat::duration(3725), "1 Std., 2 Min.");
    }
    const ScopedLocale none(nullptr);
    const ScopedEnvironment language("LANG", "en_US.UTF-8");
    const ScopedEnvironment numeric("LC_NUMERIC", "fr_FR.UTF-8");
    EXPECT_THAT(TextFormat::byteCount(1'500'000), AllOf(HasSubstr("1,5"), HasSubstr("Mo")));
    const ScopedEnvironment time("LC_TIME", "de_DE.UTF-8");
    EXPECT_EQ(TextFormat::date(moment, DateStyle::mediumStyle, DateStyle::none), "14.03.2021");
}

TEST_F(TextFormatTest, withoutAUsableLocaleTextsAreAmericanEnglish) {
    for (const char* name : {"C", "C.UTF-8", "POSIX", "%%%", "_", ".UTF-8", "xx_YY", "\xFF\xFE"}) {
        const ScopedLocale plain(name);
        EXPECT_EQ(TextFormat::date(moment, DateStyle::mediumStyle, DateStyle::none), "Mar 14, 2021") << name;
        EXPECT_EQ(TextFormat::number(1'234'567), "1,234,567") << name;
        EXPECT_EQ(TextFormat::byteCount(0), "Zero KB") << name;
    }
}

TEST_F(TextFormatTest, datesAreShownInTheZoneOfTheMomentAndInTheLocaleThatIsNamed) {
    const ScopedLocale english("en_US.UTF-8");
    const auto shortDate = [](std::string_view locale) {
        return TextFormat::date(moment, DateStyle::shortStyle, DateStyle::shortStyle, locale);
    };
    EXPECT_THAT(shortDate("tr"), AllOf(HasSubstr("14.03.2021"), HasSubstr("15:30")));
    EXPECT_THAT(shortDate("zh-Hans"), AllOf(HasSubstr("2021/3/14"), HasSubstr("15:30")));
    EXPECT_THAT(shortDate("zh-Hant"), AllOf(HasSubstr("2021/3/14"), HasSubstr("下午")));
    EXPECT_EQ(TextFormat::date(moment, DateStyle::none, DateStyle::none, "tr"), "");
    const ScopedTimeZone tokyo("Asia/Tokyo");
    EXPECT_THAT(TextFormat::date(moment, DateStyle::mediumStyle, DateStyle::mediumStyle),
                AllOf(HasSubstr("Mar 15, 2021"), HasSubstr("12:30:45"), HasSubstr("AM")));
}

TEST_F(TextFormatTest, durationsAreInTwoUnitsAtMost) {
    const ScopedLocale english("en_US.UTF-8");
    constexpr std::pair<double, std::string_view> expected[] = {
        {0.9, "0s"},  {61.25, "1m 1s"},   {120, "2m"}, {3599.9, "59m 59s"},
        {3659, "1h"}, {90'061, "25h 1m"}, {-5, "0s"},  {std::numeric_limits<double>::quiet_NaN(), "0s"}};
    for (const auto& [seconds, text] : expected) {
        EXPECT_EQ(TextFormat::duration(seconds), text) << seconds;
    }
}

} // namespace
} // namespace lumeo
