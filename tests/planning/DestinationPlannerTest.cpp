#include "planning/DestinationPlanner.h"

#include "hashing/StreamingHashService.h"
#include "platform/LocalCalendar.h"
#include "support/MemoryFileSystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace lumeo {
namespace {

using testing::ElementsAre;

MediaItem makeItem(std::string_view sourcePath, std::optional<WallTime> date) {
    MediaItem item;
    item.sourceURL = FilePath(std::string(sourcePath));
    if (date) {
        item.resolvedDate = LocalCalendar::compose(*date);
    }
    return item;
}

class DestinationPlannerTest : public testing::Test {
protected:
    std::vector<std::string> planned() {
        DestinationPlanner::plan(items, plan, files);
        std::vector<std::string> paths;
        for (const MediaItem& item : items) {
            paths.push_back(item.plannedDestinationURL.value_or(FilePath("none")).bytes());
        }
        return paths;
    }

    MemoryFileSystem files;
    OrganizationPlan plan;
    std::vector<MediaItem> items;
};

TEST_F(DestinationPlannerTest, PlacesItemsInOrderAndForgetsTheLastPlan) {
    items = {makeItem("/card/IMG_1.jpg", std::nullopt), makeItem("/phone/IMG_1.jpg", std::nullopt),
             makeItem("/card/b.jpg", WallTime{2025, 8, 17, 12, 0, 0}),
             makeItem("/phone/b.jpg", WallTime{2025, 1, 2, 12, 0, 0})};
    EXPECT_THAT(planned(), ElementsAre("none", "none", "none", "none")) << "no destination yet";

    plan.destinationURL = FilePath("/archive");
    plan.preset = OrganizationPreset::yearOnly;
    EXPECT_THAT(planned(),
                ElementsAre("/archive/_Unknown Date/IMG_1.jpg", "/archive/_Unknown Date/IMG_1_2.jpg",
                            "/archive/2025/b.jpg", "/archive/2025/b_2.jpg"));

    plan.preset = OrganizationPreset::exactDate;
    EXPECT_THAT(planned(),
                ElementsAre("/archive/_Unknown Date/IMG_1.jpg", "/archive/_Unknown Date/IMG_1_2.jpg",
                            "/archive/2025/2025-08 August/2025-08-17/b.jpg",
                            "/archive/2025/2025-01 January/2025-01-02/b.jpg"));
}

TEST_F(DestinationPlannerTest, PutsItemsIntoTheRootItselfWhenTheTemplateNamesNoFolder) {
    plan.preset = OrganizationPreset::custom;
    plan.customTemplate = "/ /";
    items = {makeItem("/card/a.jpg", WallTime{2025, 8, 17, 12, 0, 0})};
    plan.destinationURL = FilePath("/archive");
    EXPECT_THAT(planned(), ElementsAre("/archive/a.jpg"));
    plan.destinationURL = FilePath("/");
    EXPECT_THAT(planned(), ElementsAre("/a.jpg"));
}

TEST_F(DestinationPlannerTest, PlansAnItemOntoItsIdenticalCopyInTheArchive) {
    files.addFile(FilePath("/archive/_Unknown Date/a.jpg"), "content");
    plan.destinationURL = FilePath("/archive");
    items = {makeItem("/card/a.jpg", std::nullopt), makeItem("/card/a.jpg", std::nullopt)};
    items[1].fileSize = 7;
    items[1].sha256Hash =
        *StreamingHashService::computeSHA256(files, FilePath("/archive/_Unknown Date/a.jpg"),
                                             StreamingHashService::chunkSize, [] { return false; });
    EXPECT_THAT(planned(), ElementsAre("/archive/_Unknown Date/a_2.jpg", "/archive/_Unknown Date/a.jpg"));
}

} // namespace
} // namespace lumeo
