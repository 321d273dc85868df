#include "dates/FilesystemDates.h"
#include "dates/TwinDates.h"
#include "support/FakeClock.h"

#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace lumeo {
namespace {

using namespace std::chrono_literals;
using enum DateSourceType;
using testing::ElementsAre;

const Instant shot = std::chrono::sys_days(std::chrono::year(2015) / 1 / 1);
const Instant copied = shot + 24h * 1'000;
const FakeClock now{shot + 24h * 3'000};

TEST(StandInDates, OfTheFileSystemAreNotTheDayOfACopyAndCanBeTakenBack) {
    MediaItem photo;
    photo.mediaType = MediaType::photo;
    std::vector<MediaItem> items(4, photo);
    items[0].filesystemCreationDate = copied;
    items[0].filesystemModificationDate = shot;
    items[1].filesystemCreationDate = shot;
    items[1].filesystemModificationDate = copied;
    items[2].filesystemCreationDate = copied;
    items[3].filesystemModificationDate = now.now() + 24h * 3;
    const std::vector<MediaItem> before = items;
    FilesystemDates::apply(items, now);
    const auto isDated = [&](const MediaItem& item, Instant date, DateSourceType source) {
        return item.resolvedDate == date && item.dateSource == source &&
               item.dateConfidence == DateConfidence::low;
    };
    EXPECT_TRUE(isDated(items[0], shot, filesystemModificationDate));
    EXPECT_TRUE(isDated(items[1], shot, filesystemCreationDate));
    EXPECT_TRUE(isDated(items[2], copied, filesystemCreationDate));
    EXPECT_THAT(items[3].scanWarnings, ElementsAre("Date is set in the future"));
    FilesystemDates::remove(items);
    EXPECT_EQ(items, before);
}

TEST(StandInDates, OfATwinAreTheMostTrustedOnesAndSaySo) {
    const Uuid group = Uuid::random();
    const auto item = [&](DateSourceType source, DateConfidence confidence, Instant date) {
        MediaItem made;
        made.exactDuplicateGroupID = group;
        made.resolvedDate = date;
        made.dateSource = source;
        made.dateConfidence = confidence;
        return made;
    };
    MediaItem undated;
    undated.exactDuplicateGroupID = group;
    MediaItem datedByTheDisk = undated;
    datedByTheDisk.filesystemModificationDate = now.now() + 24h * 3;
    FilesystemDates::apply({&datedByTheDisk, 1}, now);
    MediaItem ofAnotherGroup;
    ofAnotherGroup.exactDuplicateGroupID = Uuid::random();
    std::vector<MediaItem> items{undated,
                                 item(filename, DateConfidence::medium, shot),
                                 item(quickTimeMetadataDate, DateConfidence::high, copied),
                                 item(exifCreateDate, DateConfidence::high, shot),
                                 datedByTheDisk,
                                 ofAnotherGroup,
                                 MediaItem()};
    items[2].dateSuspiciousWarning = SharedText("a doubt");
    const std::vector<MediaItem> before = items;
    TwinDates::apply(items);
    for (const std::size_t index : {0U, 4U}) {
        EXPECT_EQ(items[index].resolvedDate, copied);
        EXPECT_EQ(items[index].dateSource, quickTimeMetadataDate);
        EXPECT_EQ(items[index].dateConfidence, DateConfidence::high);
        EXPECT_EQ(items[index].dateSuspiciousWarning, SharedText("a doubt"));
        EXPECT_THAT(items[index].scanWarnings, ElementsAre("Date taken from an identical file", "a doubt"));
    }
    for (const std::size_t index : {1U, 2U, 3U, 5U, 6U}) {
        EXPECT_EQ(items[index], before[index]);
    }
    const std::vector<MediaItem> after = items;
    TwinDates::apply(items);
    FilesystemDates::remove(items);
    EXPECT_EQ(items, after) << "it stays";
}

} // namespace
} // namespace lumeo
