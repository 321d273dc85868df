#include "platform/LocalCalendar.h"
#include "support/SystemSettings.h"

#include <chrono>
#include <limits>
#include <random>

#include <gtest/gtest.h>

namespace lumeo {
namespace {

using namespace std::chrono;
using namespace std::chrono_literals;

Instant utc(year_month_day day, seconds timeOfDay = 0s) {
    return sys_days(day) + timeOfDay;
}

TEST(LocalCalendarTest, readsAndComposesInTheZoneOfTheMoment) {
    for (const auto& [zone, behind] : {std::pair("Europe/Berlin", -1h), std::pair("America/New_York", 4h)}) {
        const ScopedTimeZone scoped(zone);
        EXPECT_EQ(LocalCalendar::compose({2021, 3, 14, 15, 30, 45}),
                  utc(2021y / 3 / 14, 15h + 30min + 45s + behind));
        EXPECT_EQ(LocalCalendar::components(utc(2021y / 3 / 14, 15h + behind)),
                  (WallTime{2021, 3, 14, 15, 0, 0}));
    }
}

TEST(LocalCalendarTest, givesEveryWallTimeOfAClockChangeAnInstant) {
    const ScopedTimeZone berlin("Europe/Berlin");
    // On 28 March 2021 the clock goes from 02:00 to 03:00, and on 31 October from 03:00 back to 02:00.
    const std::optional<Instant> skipped = LocalCalendar::compose({2021, 3, 28, 2, 30, 0});
    ASSERT_TRUE(skipped);
    EXPECT_EQ(LocalCalendar::components(*skipped), (WallTime{2021, 3, 28, 3, 30, 0}));

    const std::optional<Instant> repeated = LocalCalendar::compose({2021, 10, 31, 2, 30, 0});
    EXPECT_EQ(repeated, utc(2021y / 10 / 31, 1h + 30min));
    EXPECT_EQ(LocalCalendar::components(*repeated - 1h), LocalCalendar::components(*repeated));
}

TEST(LocalCalendarTest, carriesFieldsBeyondTheirRangeAndHoldsOnAtTheEndsOfTime) {
    const ScopedTimeZone utcZone("UTC");
    EXPECT_EQ(LocalCalendar::compose({2020, 2, 30, 12, 0, 0}), utc(2020y / 3 / 1, 12h));
    EXPECT_EQ(LocalCalendar::compose({2020, 14, 0, 25, 61, 61}), utc(2021y / 2 / 1, 2h + 2min + 1s));
    EXPECT_EQ(LocalCalendar::compose({2021, 0, 1, 0, 0, -1}), utc(2020y / 11 / 30, 23h + 59min + 59s));
    EXPECT_EQ(LocalCalendar::components(utc(1970y / 1 / 1) - 1us), (WallTime{1969, 12, 31, 23, 59, 59}));

    constexpr int most = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    EXPECT_EQ(LocalCalendar::compose({most, most, most, most, most, most}), std::nullopt);
    EXPECT_EQ(LocalCalendar::compose({least, least, least, least, least, least}), std::nullopt);
    EXPECT_EQ(LocalCalendar::components(Instant::max()).year, 294'247);
    EXPECT_EQ(LocalCalendar::components(Instant::min()).year, -290'308);
}

TEST(LocalCalendarTest, composesWhatItReadOfAnyInstant) {
    std::mt19937_64 random(20210314);
    std::uniform_int_distribution<std::int64_t> anySecond(-9'000'000'000'000, 9'000'000'000'000);
    std::uniform_int_distribution<std::int64_t> recentSecond(-2'000'000'000, 4'000'000'000);
    for (const char* zone : {"Europe/Berlin", "America/St_Johns", "Pacific/Apia", "UTC"}) {
        const ScopedTimeZone scoped(zone);
        for (int i = 0; i < 2000; ++i) {
            const Instant instant(seconds(i % 2 == 0 ? anySecond(random) : recentSecond(random)));
            const WallTime wall = LocalCalendar::components(instant);
            const std::optional<Instant> composed = LocalCalendar::compose(wall);
            ASSERT_TRUE(composed) << zone << " " << instant.time_since_epoch().count();
            // In a repeated hour the result may be the other one of the two instants, which shows the same
            // wall time.
            EXPECT_TRUE(composed == instant || LocalCalendar::components(*composed) == wall)
                << zone << " " << instant.time_since_epoch().count();
        }
    }
}

} // namespace
} // namespace lumeo
