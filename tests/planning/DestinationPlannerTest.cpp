#include "planning/DestinationPlanner.h"

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

} // namespace
} // namespace lumeo
