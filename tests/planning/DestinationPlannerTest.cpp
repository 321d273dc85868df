#include "planning/DestinationPlanner.h"

#include "planning/OutputSize.h"
#include "platform/LocalCalendar.h"
#include "platform/volumes/DiskTable.h"
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

TEST(DestinationPlannerTest, PlacesItemsInOrderAndForgetsTheLastPlan) {
    const MemoryFileSystem files;
    OrganizationPlan plan;
    std::vector<MediaItem> items;
    const auto planned = [&] {
        DestinationPlanner::plan(items, plan, files);
        std::vector<std::string> paths;
        for (const MediaItem& item : items) {
            paths.push_back(item.plannedDestinationURL.value_or(FilePath("none")).bytes());
        }
        return paths;
    };
    items = {makeItem("/card/IMG_1.jpg", std::nullopt), makeItem("/phone/IMG_1.jpg", std::nullopt),
             makeItem("/card/b.jpg", WallTime{2025, 8, 17, 12, 0, 0}),
             makeItem("/phone/b.jpg", WallTime{2025, 1, 2, 12, 0, 0})};
    EXPECT_THAT(planned(), ElementsAre("none", "none", "none", "none")) << "no destination yet";

    plan.destinationURL = FilePath("/archive");
    plan.preset = OrganizationPreset::exactDate;
    EXPECT_THAT(planned(),
                ElementsAre("/archive/_Unknown Date/IMG_1.jpg", "/archive/_Unknown Date/IMG_1_2.jpg",
                            "/archive/2025/2025-08 August/2025-08-17/b.jpg",
                            "/archive/2025/2025-01 January/2025-01-02/b.jpg"));

    plan.preset = OrganizationPreset::custom;
    plan.customTemplate = "/ /"; // does not name a folder
    plan.destinationURL = FilePath("/");
    EXPECT_THAT(planned(),
                ElementsAre("/_Unknown Date/IMG_1.jpg", "/_Unknown Date/IMG_1_2.jpg", "/b.jpg", "/b_2.jpg"));
}

TEST(DestinationPlannerTest, GivesPlacesThatTheDiskTakesAndTellsApart) {
    MemoryFileSystem files;
    files.addFile(FilePath("/archive/2025/CANON_/A.JPG"), "");
    OrganizationPlan plan;
    plan.destinationURL = FilePath("/archive");
    plan.preset = OrganizationPreset::custom;
    plan.customTemplate = "{YYYY}/Canon:";
    const auto planned = [&](std::string_view type) {
        files.traits = traitsOfType(type);
        std::vector<MediaItem> items;
        for (const char* name :
             {"Photo 15:30:45.jpg", "a.jpg", "A.JPG", "con.jpg", "what?.jpg", "WHAT_.jpg"}) {
            items.push_back(makeItem("/card/" + std::string(name), WallTime{2025, 8, 17, 12, 0, 0}));
        }
        items.back().fileSize = std::int64_t{4} << 30;
        DestinationPlanner::plan(items, plan, files);
        std::vector<std::string> paths;
        for (const MediaItem& item : items) {
            paths.push_back(item.plannedDestinationURL->relativeTo(*plan.destinationURL));
        }
        EXPECT_EQ(items.back().scanWarnings.empty(), tooLargeFiles(items, files.traits) == 0);
        DestinationPlanner::plan(items, plan, files, DiskTraits{});
        EXPECT_TRUE(items.back().scanWarnings.empty()) << "it fits another disk";
        return paths;
    };
    EXPECT_THAT(planned("vfat"),
                ElementsAre("2025/Canon_/Photo 15_30_45.jpg", "2025/Canon_/a_2.jpg", "2025/Canon_/A_3.JPG",
                            "2025/Canon_/con_.jpg", "2025/Canon_/what_.jpg", "2025/Canon_/WHAT__2.jpg"));
    EXPECT_THAT(planned("ext4"),
                ElementsAre("2025/Canon:/Photo 15:30:45.jpg", "2025/Canon:/a.jpg", "2025/Canon:/A.JPG",
                            "2025/Canon:/con.jpg", "2025/Canon:/what?.jpg", "2025/Canon:/WHAT_.jpg"));
}

} // namespace
} // namespace lumeo
