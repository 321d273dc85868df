#include "dates/LUMEODateFormatters.h"
#include "support/SystemSettings.h"

#include <chrono>

#include <gmock/gmock.h>

namespace lumeo {
namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

TEST(LUMEODateFormattersTest, eachTextShowsItsShareOfTheDateOrThatThereIsNone) {
    const ScopedEnvironment locale("LC_ALL", "en_US.UTF-8");
    const ScopedTimeZone zone("America/New_York");
    const Instant date = std::chrono::sys_days(std::chrono::year(2021) / 3 / 14) + 19h + 30min + 45s;
    EXPECT_THAT(LUMEODateFormatters::formattedFully(date),
                AllOf(HasSubstr("Mar 14, 2021"), HasSubstr("3:30:45"), HasSubstr("PM")));
    EXPECT_EQ(LUMEODateFormatters::formattedMedium(date), "Mar 14, 2021");
    EXPECT_THAT(LUMEODateFormatters::formattedShort(date),
                AllOf(HasSubstr("3/14/21"), HasSubstr("3:30"), Not(HasSubstr(":45"))));
    EXPECT_EQ(LUMEODateFormatters::formattedFully(std::nullopt), "Unknown");
    EXPECT_EQ(LUMEODateFormatters::formattedMedium(std::nullopt), "Unknown");
    EXPECT_EQ(LUMEODateFormatters::formattedShort(std::nullopt), "—");
}

} // namespace
} // namespace lumeo
