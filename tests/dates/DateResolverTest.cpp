#include "dates/DateResolver.h"
#include "platform/LocalCalendar.h"
#include "support/FakeClock.h"
#include "support/SystemSettings.h"

#include <chrono>
#include <vector>

#include <gtest/gtest.h>

namespace lumeo {
namespace {

using namespace std::chrono_literals;

using Field = std::optional<Instant> CandidateDates::*;

struct Step {
    Field field;
    DateSourceType source;
    DateConfidence confidence;
};

class DateResolverTest : public testing::Test {
protected:
    [[nodiscard]] ResolvedDateResult resolve(MediaType type, const CandidateDates& dates,
                                             DateResolverOptions options = {true, true}) const {
        return DateResolver::resolveDate(type, dates, options, clock_);
    }
    [[nodiscard]] std::optional<std::string> warningFor(Instant date) const {
        CandidateDates dates;
        dates.videoCreationDate = date;
        const ResolvedDateResult result = resolve(MediaType::video, dates);
        EXPECT_EQ(result.date, date);
        EXPECT_EQ(result.confidence, DateConfidence::high);
        return result.warning;
    }
    [[nodiscard]] std::optional<std::string> warningFor(const WallTime& wall) const {
        return warningFor(LocalCalendar::compose(wall).value());
    }

    FakeClock clock_{std::chrono::sys_days(std::chrono::year(2024) / 6 / 1)};
};

CandidateDates everyDate() {
    const Instant base = std::chrono::sys_days(std::chrono::year(2015) / 1 / 1);
    return {base, base + 1h, base + 2h, base + 3h, base + 4h, base + 5h, base + 6h};
}

TEST_F(DateResolverTest, takesTheBestCandidateOfTheMediaType) {
    using enum DateSourceType;
    const Step capture{&CandidateDates::metadataCaptureDate, exifDateTimeOriginal, DateConfidence::high};
    const Step digitized{&CandidateDates::metadataCreateDate, exifCreateDate, DateConfidence::high};
    const Step tiff{&CandidateDates::tiffDateTime, tiffDateTime, DateConfidence::high};
    const Step video{&CandidateDates::videoCreationDate, quickTimeMetadataDate, DateConfidence::high};
    const Step name{&CandidateDates::filenameDate, filename, DateConfidence::medium};
    const Step created{&CandidateDates::filesystemCreationDate, filesystemCreationDate, DateConfidence::low};
    const Step modified{&CandidateDates::filesystemModificationDate, filesystemModificationDate,
                        DateConfidence::low};
    const std::vector<Step> photoOrder{capture, digitized, tiff, name, created, modified};
    const std::pair<MediaType, std::vector<Step>> orders[] = {
        {MediaType::photo, photoOrder},
        {MediaType::rawPhoto, photoOrder},
        {MediaType::video, {video, name, created, modified}},
        {MediaType::other, {name, created}},
    };
    for (const auto& [type, order] : orders) {
        CandidateDates dates = everyDate();
        for (const Step& step : order) {
            const ResolvedDateResult expected{dates.*step.field, step.source, step.confidence, std::nullopt};
            EXPECT_EQ(resolve(type, dates), expected) << rawValue(type) << " " << rawValue(step.source);
            dates.*step.field = std::nullopt;
        }
        EXPECT_EQ(resolve(type, dates), ResolvedDateResult{})
            << rawValue(type) << ": all that is left is not its own";
    }
}

TEST_F(DateResolverTest, fileSystemDatesCountOnlyWhenAllowed) {
    CandidateDates dates;
    dates.filesystemCreationDate = everyDate().filesystemCreationDate;
    dates.filesystemModificationDate = everyDate().filesystemModificationDate;
    EXPECT_EQ(resolve(MediaType::photo, dates, {}), ResolvedDateResult{});
    EXPECT_EQ(resolve(MediaType::photo, dates, {.allowFilesystemCreationDate = true}).date,
              dates.filesystemCreationDate);
    EXPECT_EQ(resolve(MediaType::video, dates, {.allowFilesystemModificationDate = true}).date,
              dates.filesystemModificationDate);
}

TEST_F(DateResolverTest, warnsOfClocksThatWereNeverSetAndOfDatesMoreThanTwoDaysAhead) {
    const ScopedTimeZone newYork("America/New_York");
    EXPECT_EQ(warningFor(WallTime{1980, 12, 31, 23, 59, 59}), "Possible incorrect camera clock (1980)");
    EXPECT_EQ(warningFor(WallTime{1981, 1, 1, 0, 0, 0}), std::nullopt);
    EXPECT_EQ(warningFor(WallTime{2000, 1, 1, 23, 59, 59}), "Possible incorrect camera clock (2000)");
    EXPECT_EQ(warningFor(WallTime{2000, 1, 2, 0, 0, 0}), std::nullopt);
    const Instant eveningBefore = std::chrono::sys_days(std::chrono::year(2000) / 1 / 1) + 3h;
    EXPECT_EQ(warningFor(eveningBefore), std::nullopt);
    const ScopedTimeZone tokyo("Asia/Tokyo");
    EXPECT_EQ(warningFor(eveningBefore), "Possible incorrect camera clock (2000)");

    EXPECT_EQ(warningFor(clock_.now() + 48h), std::nullopt);
    EXPECT_EQ(warningFor(clock_.now() + 48h + 1us), "Date is set in the future");
}

} // namespace
} // namespace lumeo
