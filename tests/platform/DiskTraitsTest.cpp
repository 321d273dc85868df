#include "platform/volumes/DiskTable.h"

#include "platform/PosixFileSystem.h"
#include "support/TempFolder.h"

#include <filesystem>

#include <gtest/gtest.h>

namespace lumeo {
namespace {

std::string repeated(std::string_view text, int times) {
    std::string result;
    for (int i = 0; i < times; ++i) {
        result += text;
    }
    return result;
}

TEST(DiskTraitsTest, FitsNamesToTheDiskAndLeavesThoseAloneThatItTakes) {
    const DiskTraits exFat = traitsOfType("exfat");
    const DiskTraits encrypted{.longestName = 143};
    struct Case {
        DiskTraits disk;
        std::string name;
        std::string fitted;
    };
    const std::vector<Case> cases{
        {exFat, "Photo 2021-03-14 15:30:45.jpg", "Photo 2021-03-14 15_30_45.jpg"},
        {exFat, "a\"*:<>?\\|\x01\x7F.jpg", "a__________.jpg"},
        {exFat, "name. .", "name___"},
        {exFat, " .hidden", " .hidden"},
        {exFat, "con", "con_"},
        {exFat, "LPT1.tar.gz", "LPT1_.tar.gz"},
        {exFat, "COM0.jpg", "COM0.jpg"},
        {exFat, "console.jpg", "console.jpg"},
        {exFat, "\xFF\xC3\xA9\xC3.jpg", "_\xC3\xA9_.jpg"},
        {exFat, repeated("語", 251) + ".jpg", repeated("語", 251) + ".jpg"},
        {exFat, repeated("😀", 200) + ".jpg", repeated("😀", 125) + ".jpg"},
        {{}, "a:b*?. \xFF", "a:b*?. \xFF"},
        {{}, repeated("語", 100) + ".jpg", repeated("語", 83) + ".jpg"},
        {encrypted, repeated("x", 150) + ".jpeg", repeated("x", 138) + ".jpeg"},
        {encrypted, "a." + repeated("x", 150), "a." + repeated("x", 141)},
        {traitsOfType("ntfs3"), "a:b. \xFF", "a:b. _"},
        {traitsOfType("of tomorrow"), "a:b. \xFF", "a:b. \xFF"},
    };
    for (const auto& [disk, name, fitted] : cases) {
        EXPECT_EQ(fittedName(name, disk), fitted);
        EXPECT_EQ(fittedName(fitted, disk), fitted) << "what fits stays";
    }
    EXPECT_EQ(traitsOfType("vfat").largestFile, 4'294'967'295);
}

TEST(DiskTraitsTest, ComparesNamesAsTheDiskDoes) {
    const DiskTraits exFat = traitsOfType("exfat");
    const DiskTraits hfs = traitsOfType("hfsplus");
    const auto areOne = [](std::string_view a, std::string_view b, const DiskTraits& disk) {
        return comparableName(a, disk) == comparableName(b, disk);
    };
    EXPECT_TRUE(areOne("IMG.jpg", "img.JPG", exFat));
    EXPECT_TRUE(areOne("\u00C9t\u00E9.jpg", "\u00E9T\u00C9.JPG", exFat));
    EXPECT_TRUE(areOne("\u0131.jpg", "I.jpg", exFat)) << "both have one upper-case letter";
    EXPECT_FALSE(areOne("\u00E9.jpg", "e\u0301.jpg", exFat));
    EXPECT_TRUE(areOne("\u00E9.jpg", "E\u0301.jpg", hfs));
    EXPECT_TRUE(areOne("a\u200D.jpg", "a.jpg", hfs)) << "a joiner is not seen";
    EXPECT_FALSE(areOne("a.jpg", "A.jpg", traitsOfType("ext4")));
    EXPECT_FALSE(areOne("\xFF.jpg", "\xFE.jpg", {}));
}

TEST(DiskTraitsTest, KnowsADiskByItsMountItsDeviceItsLimitsAndItsNames) {
    const TempFolder system;
    const auto traitsOf = [&](const std::string& type) {
        system.write("proc/self/mountinfo",
                     "2000000000 1 259:9 / " + system.path().bytes() + " rw - " + type + " /dev/x rw\n");
        return traitsOfDisk(system.path(), system.path());
    };
    system.write("run/udev/data/b259:9",
                 "S:disk/by-id/x\nE:ID_FS_LABEL=CARD\nE:ID_FS_TYPE=exfat\nG:systemd\n");
    EXPECT_EQ(traitsOf("fuseblk"), traitsOfType("exfat")) << "a program outside the kernel reads it";
    EXPECT_EQ(traitsOf("vfat"), traitsOfType("vfat"));
    EXPECT_FALSE(traitsOf("fuse.unheard-of").isCertain);
    EXPECT_FALSE(traitsOf("fuse.unheard-of").ignoresCase) << "the names that are there say otherwise";
    EXPECT_EQ(PosixFileSystem().diskTraits(system / "not/there yet").longestName, 255U);
}

} // namespace
} // namespace lumeo
