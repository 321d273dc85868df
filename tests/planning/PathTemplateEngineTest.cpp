#include "planning/PathTemplateEngine.h"

#include "platform/LocalCalendar.h"

#include <gtest/gtest.h>

namespace lumeo {
namespace {

std::string render(std::string_view folderTemplate, const WallTime& wall, const MediaItem& item = {}) {
    return PathTemplateEngine::render(folderTemplate, LocalCalendar::compose(wall).value(), item);
}

std::string renderCamera(std::string_view folderTemplate, std::string_view make) {
    MediaItem item;
    item.cameraMake = SharedText(make);
    return render(folderTemplate, {2025, 8, 17, 12, 0, 0}, item);
}

TEST(PathTemplateEngine, FillsDateTokensFromTheLocalDay) {
    constexpr WallTime august{2025, 8, 17, 23, 59, 59};
    EXPECT_EQ(render("{YY}-{MonthShort}", {2005, 9, 1, 0, 0, 0}), "05-Sep");
    EXPECT_EQ(render("{YYYY} {YY} {Month} {MonthShort}", {987, 5, 3, 12, 0, 0}), "0987 87 May May");
    EXPECT_EQ(render("{yyyy} {Day} {", august), "{yyyy} {Day} {") << "what is no token stays";
}

TEST(PathTemplateEngine, FillsAndCleansCameraAndMediaType) {
    MediaItem item;
    item.mediaType = MediaType::rawPhoto;
    constexpr WallTime day{2025, 8, 17, 12, 0, 0};
    EXPECT_EQ(render("{CameraMake}/{CameraModel}/{MediaType}", day, item),
              "Unknown Camera/Unknown Model/RAW Photo");
    item.cameraMake = SharedText("NIKON: D850 / Z");
    item.cameraModel = SharedText("\t a\\b??%*|\"<> ");
    EXPECT_EQ(render("{CameraMake}/{CameraModel}", day, item), "NIKON_ D850 _ Z/a_b________");
    item.cameraMake = SharedText("{MediaType} {YYYY}");
    EXPECT_EQ(render("{CameraMake} {{YY}YY}", day, item), "RAW Photo {YYYY} {25YY}")
        << "in a fixed order, each in the result of the one before";
}

TEST(PathTemplateEngine, DropsEmptyLevelsAndTrimsTheOthers) {
    constexpr WallTime day{2025, 8, 17, 12, 0, 0};
    EXPECT_EQ(render("// {YYYY} - {MM} //  /{MM}/", day), "2025 - 08/08");
    EXPECT_EQ(render("\u3000{YYYY}\u00A0\r\n/\u2028", day), "2025");
    EXPECT_EQ(render("a:b?/\xFF{MM}\x85", day), "a:b?/\xFF"
                                                "08\x85")
        << "literal text passes unchanged";
}

TEST(PathTemplateEngine, NeverLeadsOutOfTheRootNorToANameThatNoFolderCanHave) {
    EXPECT_EQ(renderCamera("{YYYY}/../{CameraMake}/ . /x", ".."), "2025/__/__/_/x");
    EXPECT_EQ(renderCamera("{CameraMake}", std::string_view("..\0/etc", 7)), ".._"
                                                                             "_etc");

    std::string longName = "x";
    for (int i = 0; i < 200; ++i) {
        longName += "é";
    }
    EXPECT_EQ(renderCamera("{MM}{CameraMake}/{YYYY}", longName), "08" + longName.substr(0, 253) + "/2025")
        << "clipped between two characters";
}

TEST(PathTemplateEngine, ChoosesTheTemplateByPreset) {
    MediaItem item;
    item.resolvedDate = LocalCalendar::compose({2025, 8, 17, 12, 0, 0});
    const auto path = [&](OrganizationPreset preset, std::optional<std::string_view> custom) {
        return PathTemplateEngine::renderRelativePath(item, preset, custom, "somewhere/else");
    };
    EXPECT_EQ(path(OrganizationPreset::yearOnly, "{MM}"), "2025");
    EXPECT_EQ(path(OrganizationPreset::custom, "{MM}"), "08");
    EXPECT_EQ(path(OrganizationPreset::custom, std::nullopt), "2025/2025-08 August");
    item.resolvedDate = std::nullopt;
    EXPECT_EQ(path(OrganizationPreset::custom, "{MM}"), "somewhere/else");
}

} // namespace
} // namespace lumeo
