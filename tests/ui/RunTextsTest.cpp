#include "ui/models/RunTexts.h"

#include "support/SystemSettings.h"
#include "ui/models/ReportFigures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace lumeo {
namespace {

using testing::ElementsAre;
using Year = ReportFigures::Year;

constexpr double endless = std::numeric_limits<double>::infinity();
constexpr double none = std::numeric_limits<double>::quiet_NaN();

TEST(RunTextsTest, WritesSpeedsAndSpansWhateverTheFigure) {
    const ScopedEnvironment locale("LC_ALL", "en_US.UTF-8");
    for (const double nothing : {0.0, -5.0, endless, -endless, none}) {
        EXPECT_EQ(speedText(nothing), QStringLiteral("0 KB/s"));
        EXPECT_EQ(spanText(nothing), QStringLiteral("0s"));
    }
    EXPECT_EQ(speedText(12'500'000.9), QStringLiteral("12.5 MB/s"));
    EXPECT_EQ(spanText(59.9), QStringLiteral("59s"));
    EXPECT_EQ(spanText(60), QStringLiteral("1m 0s"));
    EXPECT_EQ(spanText(125), QStringLiteral("2m 5s"));
    EXPECT_EQ(spanText(7'384), QStringLiteral("123m 4s"));
    EXPECT_FALSE(spanText(std::numeric_limits<double>::max()).isEmpty());

    EXPECT_EQ(percentText(1, 3), QStringLiteral("33%"));
    EXPECT_EQ(percentText(5, 0), QStringLiteral("0%"));
    EXPECT_EQ(fileCountText(1), QStringLiteral("1 file"));
    EXPECT_EQ(fileCountText(2), QStringLiteral("2 files"));
}

MediaItem dated(int year, int month, int day, int hour = 12) {
    MediaItem item;
    item.mediaType = MediaType::photo;
    item.resolvedDate =
        Instant(std::chrono::sys_days{std::chrono::year{year} / month / day}) + std::chrono::hours(hour);
    return item;
}

TEST(ReportFiguresTest, GroupsByTheYearOnTheUsersWall) {
    const ScopedTimeZone zone("Asia/Tokyo");
    const std::vector<MediaItem> items{dated(2021, 7, 1), MediaItem(), dated(2019, 12, 31, 16), // 2020 there
                                       dated(2019, 12, 31, 14), dated(2021, 7, 2)};
    const ReportFigures figures = ReportFigures::of(nullptr, items);
    EXPECT_THAT(figures.timeline,
                ElementsAre(Year{"2019", 1}, Year{"2020", 1}, Year{"2021", 2}, Year{"Unknown", 1}));
    EXPECT_EQ(figures.undated, 1);
    EXPECT_EQ(figures.photos, 4);
    EXPECT_EQ(figures.organized, 0);
    EXPECT_EQ(figures.mode, "COPY");
}

TEST(ReportFiguresTest, CountsTheJournalByOutcome) {
    OperationManifest manifest;
    manifest.operationType = "move";
    manifest.totalTransferredBytes = 7;
    for (const TransactionStatus status :
         {TransactionStatus::verified, TransactionStatus::verified, TransactionStatus::skipped,
          TransactionStatus::failed, TransactionStatus::pending}) {
        manifest.items.emplace_back().status = status;
    }
    const ReportFigures figures = ReportFigures::of(&manifest, {});
    EXPECT_EQ(figures.organized, 2);
    EXPECT_EQ(figures.skipped, 1);
    EXPECT_EQ(figures.failed, 1);
    EXPECT_EQ(figures.transferredBytes, 7);
    EXPECT_EQ(figures.mode, "MOVE");
    EXPECT_THAT(figures.timeline, testing::IsEmpty());
}

} // namespace
} // namespace lumeo
