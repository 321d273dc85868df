#include "hashing/DuplicateDetector.h"

#include "hashing/DuplicateGroups.h"
#include "support/MemoryFileSystem.h"

#include <cerrno>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace lumeo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class DuplicateDetectorTest : public testing::Test {
protected:
    void add(std::string_view path, std::string_view content) {
        MediaItem item;
        item.id = Uuid::random();
        item.sourceURL = FilePath(std::string(path));
        item.fileSize = static_cast<std::int64_t>(content.size());
        files.addFile(item.sourceURL, content);
        items.push_back(std::move(item));
    }

    std::vector<MediaItem> detect(const std::stop_token& stop = {}) {
        return DuplicateDetector(files).detectDuplicates(items, stop);
    }

    std::vector<std::vector<std::size_t>> membersOf(std::span<const MediaItem> marked) {
        std::vector<std::vector<std::size_t>> members;
        for (const DuplicateGroup& group : duplicateGroups(marked, files)) {
            members.push_back(group.members);
        }
        return members;
    }

    static std::vector<bool> hashedOf(std::span<const MediaItem> marked) {
        std::vector<bool> hashed;
        for (const MediaItem& item : marked) {
            hashed.push_back(item.sha256Hash.has_value());
        }
        return hashed;
    }

    MemoryFileSystem files;
    std::vector<MediaItem> items;
};

TEST_F(DuplicateDetectorTest, GroupsIdenticalFilesAmongThoseOfOneSizeReadingThemInScanOrder) {
    add("/a/unique.jpg", "a size of its own");
    add("/a/1.jpg", "twin");
    add("/a/2.jpg", "pair!");
    add("/b/3.jpg", "odd1");
    add("/b/4.jpg", "TWIN");
    add("/b/5.jpg", "twin");
    add("/c/6.jpg", "pair!");
    add("/c/7.jpg", "TWIN");
    add("/c/8.jpg", "twin");
    const std::vector<MediaItem> marked = detect();
    EXPECT_THAT(membersOf(marked), ElementsAre(ElementsAre(1, 5, 8), ElementsAre(2, 6), ElementsAre(4, 7)));
    EXPECT_THAT(duplicateGroups(marked, files)[0].reclaimableBytes, 8);
    EXPECT_THAT(hashedOf(marked), ElementsAre(false, true, true, true, true, true, true, true, true));
    EXPECT_EQ(files.opened().front(), FilePath("/a/1.jpg"));
    EXPECT_EQ(files.opened().back(), FilePath("/c/8.jpg"));
    EXPECT_EQ(membersOf(DuplicateDetector(files).detectDuplicates(marked)), membersOf(marked));
}

TEST_F(DuplicateDetectorTest, LeavesOutEmptyAndUnreadableFiles) {
    EXPECT_THAT(detect(), IsEmpty());
    add("/empty1.jpg", "");
    add("/empty2.jpg", "");
    add("/locked.jpg", "same");
    add("/open.jpg", "same");
    files.refuseOpening(FilePath("/locked.jpg"), EACCES);
    const std::vector<MediaItem> marked = detect();
    EXPECT_THAT(hashedOf(marked), ElementsAre(false, false, false, true));
    EXPECT_THAT(membersOf(marked), IsEmpty());
    EXPECT_THAT(files.opened(), SizeIs(2));
}

TEST_F(DuplicateDetectorTest, OnceStoppedReadsNoFurtherFileAndKeepsWhatItFound) {
    for (const char* path : {"/1.jpg", "/2.jpg", "/3.jpg", "/4.jpg", "/5.jpg"}) {
        add(path, "same");
    }
    std::stop_source stop;
    files.onOpen = [&](const FilePath& path) {
        if (path == FilePath("/3.jpg")) {
            stop.request_stop();
        }
    };
    const std::vector<MediaItem> marked = detect(stop.get_token());
    EXPECT_THAT(membersOf(marked), ElementsAre(ElementsAre(0, 1)));
    EXPECT_THAT(hashedOf(marked), ElementsAre(true, true, false, false, false));
    EXPECT_THAT(files.opened(), SizeIs(3));
}

TEST(DuplicateGroups, CountsTheNamesOfOneFileOnceAndLeavesOutAMarkThatOnlyOneFileCarries) {
    MemoryFileSystem files;
    files.addFile(FilePath("/one.jpg"), "12345");
    files.addLink(FilePath("/one again.jpg"), FilePath("/one.jpg"));
    files.addFile(FilePath("/copy.jpg"), "12345");
    std::vector<MediaItem> items;
    const Uuid kept = Uuid::random();
    const Uuid linked = Uuid::random();
    for (const auto& [name, mark] : std::vector<std::pair<std::string, Uuid>>{{"/one.jpg", kept},
                                                                              {"/one again.jpg", kept},
                                                                              {"/lonely.jpg", Uuid::random()},
                                                                              {"/copy.jpg", kept},
                                                                              {"/one.jpg", linked},
                                                                              {"/one again.jpg", linked}}) {
        MediaItem& item = items.emplace_back();
        item.sourceURL = FilePath(name);
        item.fileSize = 5;
        item.exactDuplicateGroupID = mark;
    }
    EXPECT_THAT(duplicateGroups(items, files), ElementsAre(DuplicateGroup{kept, {0, 3}, 5}));
}

} // namespace
} // namespace lumeo
