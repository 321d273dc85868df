#include "platform/PosixFileSystem.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <map>

#include <gmock/gmock.h>
#include <sys/stat.h>

namespace lumeo {
namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

std::size_t openDescriptors() {
    const std::filesystem::directory_iterator first("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(first, {}));
}

/// A walk that keeps its errors. Its paths are relative to the root.
class Walk {
public:
    explicit Walk(const FilePath& root) : root_(root) {
        auto started = PosixFileSystem().enumerate(root, [this](const FileError& error) {
            errors.emplace_back(below(error.path), error.errnoValue);
        });
        EXPECT_TRUE(started);
        walk_ = std::move(*started);
    }

    std::optional<std::pair<std::string, FileKind>> next() {
        const std::optional<DirectoryEntry> entry = walk_->next();
        if (!entry) {
            return std::nullopt;
        }
        EXPECT_TRUE(entry->status) << entry->status.error().message();
        return std::pair(below(entry->path), entry->status->kind);
    }

    void skipDescendants() { walk_->skipDescendants(); }

    std::vector<std::pair<std::string, int>> errors;

private:
    [[nodiscard]] std::string below(const FilePath& path) const {
        return path == root_ ? "" : path.bytes().substr(root_.bytes().size() + 1);
    }

    FilePath root_;
    std::unique_ptr<DirectoryEnumerator> walk_;
};

TEST(PosixDirectoryEnumeratorTest, givesEveryEntryOnceParentsBeforeContentsAndFollowsNoLink) {
    const TempFolder folder;
    folder.write("sources/card/a.jpg", "x");
    folder.write("sources/card/line\nfeed/\xFF\xFE.jpg", "x");
    folder.write("elsewhere/b.jpg", "x");
    std::filesystem::create_symlink("../../elsewhere", (folder / "sources/card/link").bytes());
    std::filesystem::create_symlink("..", (folder / "sources/loop").bytes());
    std::filesystem::create_symlink("nowhere", (folder / "sources/dangling").bytes());
    ASSERT_EQ(mkfifo((folder / "sources/pipe").c_str(), 0600), 0);
    std::filesystem::create_symlink("sources", (folder / "root").bytes());

    Walk walk(folder / "root");
    std::map<std::string, FileKind> found;
    while (const auto entry = walk.next()) {
        const std::size_t slash = entry->first.rfind('/');
        EXPECT_TRUE(slash == std::string::npos || found.contains(entry->first.substr(0, slash)));
        EXPECT_TRUE(found.insert(*entry).second) << entry->first;
    }
    EXPECT_THAT(found,
                UnorderedElementsAre(
                    std::pair("card", FileKind::folder), std::pair("card/a.jpg", FileKind::regular),
                    std::pair("card/line\nfeed", FileKind::folder),
                    std::pair("card/line\nfeed/\xFF\xFE.jpg", FileKind::regular),
                    std::pair("card/link", FileKind::symbolicLink), std::pair("loop", FileKind::symbolicLink),
                    std::pair("dangling", FileKind::symbolicLink), std::pair("pipe", FileKind::other)));
    EXPECT_THAT(walk.errors, IsEmpty());
}

TEST(PosixDirectoryEnumeratorTest, leavesOutOnlyWhatLiesBelowTheFolderGivenLast) {
    const TempFolder folder;
    folder.write("skipped/deep/a", "");
    folder.write("walked/b", "");
    Walk walk(folder.path());
    std::vector<std::string> names;
    walk.skipDescendants();
    while (const auto entry = walk.next()) {
        names.push_back(entry->first);
        if (entry->first != "walked") {
            walk.skipDescendants();
        }
    }
    EXPECT_THAT(names, UnorderedElementsAre("skipped", "walked", "walked/b"));
}

TEST(PosixDirectoryEnumeratorTest, goesOnPastFoldersThatCannotBeRead) {
    const TempFolder folder;
    EXPECT_EQ(PosixFileSystem().enumerate(folder / "missing", {}).error(),
              (FileError{FileAction::list, folder / "missing", ENOENT}));
    folder.write("elsewhere/secret", "");
    folder.write("root/removed/a", "");
    folder.write("root/replaced/b", "");
    folder.write("root/kept/c", "");
    Walk walk(folder / "root");
    std::vector<std::string> names;
    while (const auto entry = walk.next()) {
        names.push_back(entry->first);
        if (entry->first == "removed") {
            std::filesystem::remove_all((folder / "root/removed").bytes());
        } else if (entry->first == "replaced") {
            std::filesystem::remove_all((folder / "root/replaced").bytes());
            std::filesystem::create_symlink("../elsewhere", (folder / "root/replaced").bytes());
        }
    }
    EXPECT_THAT(names, UnorderedElementsAre("removed", "replaced", "kept", "kept/c"));
    EXPECT_THAT(walk.errors,
                UnorderedElementsAre(std::pair("removed", ENOENT), std::pair("replaced", ENOTDIR)));
}

/// `root` with a chain of `levels` folders below it.
FilePath chainBelow(FilePath root, int levels) {
    for (int level = 0; level < levels; ++level) {
        root = root.appending("one-level-of-a-long-chain");
    }
    return root;
}

TEST(PosixDirectoryEnumeratorTest, keepsFewFoldersOpenHoweverDeepTheTree) {
    const TempFolder folder;
    PosixFileSystem disk;
    const FilePath deepest = chainBelow(folder.path(), 200);
    ASSERT_GT(deepest.bytes().size(), 4096U);
    ASSERT_TRUE(disk.createFolders(deepest));
    for (FilePath at = deepest; at != folder.path(); at = at.parent()) {
        ASSERT_TRUE(disk.createFile(at.appending("a"), FileAccess::everyone));
        ASSERT_TRUE(disk.createFile(at.appending("z"), FileAccess::everyone));
    }
    const std::size_t before = openDescriptors();
    Walk walk(folder.path());
    std::size_t files = 0;
    std::size_t folders = 0;
    std::size_t mostOpen = 0;
    while (const auto entry = walk.next()) {
        ++(entry->second == FileKind::folder ? folders : files);
        if (folders % 10 == 0) {
            mostOpen = std::max(mostOpen, openDescriptors());
        }
    }
    EXPECT_EQ(folders, 200U);
    EXPECT_EQ(files, 400U);
    EXPECT_LE(mostOpen, before + 40);
    EXPECT_EQ(openDescriptors(), before);
    EXPECT_THAT(walk.errors, IsEmpty());
}

TEST(PosixDirectoryEnumeratorTest, findsItsWayBackUpOrReadsNothingElseInstead) {
    for (const bool rootMovesToo : {false, true}) {
        const TempFolder folder;
        PosixFileSystem disk;
        ASSERT_TRUE(disk.createFolders(chainBelow(folder / "root/x", 60)));
        ASSERT_TRUE(disk.createFolders(chainBelow(folder / "root/y", 60)));
        Walk walk(folder / "root");
        const std::string first = walk.next().value().first;
        for (int entry = 0; entry < 50; ++entry) {
            ASSERT_TRUE(walk.next());
        }
        const auto move = [&](const std::string& from, std::string_view to) {
            ASSERT_TRUE(disk.renameWithoutReplacing(folder / from, folder / to));
        };
        folder.write("elsewhere/planted", "");
        move("root/" + first, "elsewhere/moved");
        if (rootMovesToo) {
            move("root", "gone");
            move("elsewhere", "root");
        }
        std::size_t rest = 0;
        for (; const auto entry = walk.next(); ++rest) {
            EXPECT_NE(entry->first, "planted");
        }
        // The walk finishes the chain it is in. It finishes the other chain only if that can still be
        // reached.
        EXPECT_EQ(rest, rootMovesToo ? 10U : 10U + 61U);
        EXPECT_EQ(walk.errors.size(), rootMovesToo ? 1U : 0U);
    }
}

} // namespace
} // namespace lumeo
