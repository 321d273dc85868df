#include "platform/DocumentWriter.h"

#include "platform/PosixFileSystem.h"
#include "support/FaultyFileSystem.h"
#include "support/TempFolder.h"

#include <cerrno>
#include <filesystem>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace lumeo {
namespace {

std::size_t entriesIn(const FilePath& folder) {
    const std::filesystem::directory_iterator first(folder.bytes());
    return static_cast<std::size_t>(std::distance(first, {}));
}

TEST(DocumentWriterTest, whicheverCallFailsTheOldDocumentOrTheNewOneIsThereWhole) {
    std::size_t calls = 1;
    for (std::size_t failing = 1; failing <= calls; ++failing) {
        const TempFolder folder;
        const FilePath path = folder.write("journal.json", "old");
        PosixFileSystem real;
        FaultyFileSystem disk(real);
        disk.failCall(failing, EIO);

        const FileResult<void> written = writeDocument(disk, "new document", path);

        ASSERT_FALSE(written) << "call " << failing;
        EXPECT_EQ(written.error().errnoValue, EIO);
        const bool isLastCall = written.error().path == folder.path(); // only the folder was not flushed
        EXPECT_EQ(contentOf(path), isLastCall ? "new document" : "old") << "call " << failing;
        EXPECT_EQ(entriesIn(folder.path()), 1U) << "call " << failing;
        calls = isLastCall ? failing : failing + 1;
    }
    EXPECT_EQ(calls, 7U); // look, create, write, flush, close, rename, flush the folder
}

TEST(DocumentWriterTest, onlyFilesAreReplacedAndLinksLeadToThem) {
    const TempFolder folder;
    PosixFileSystem disk;
    EXPECT_TRUE(writeDocument(disk, "text", folder / std::string(255, 'n')));
    const FilePath file = folder.write("elsewhere/report.txt", "old");
    std::filesystem::create_symlink("elsewhere/report.txt", (folder / "relative").bytes());
    std::filesystem::create_symlink((folder / "relative").bytes(), (folder / "absolute").bytes());
    std::filesystem::create_symlink("elsewhere/new.txt", (folder / "dangling").bytes());
    EXPECT_TRUE(writeDocument(disk, "new", folder / "absolute"));
    EXPECT_TRUE(writeDocument(disk, "new", folder / "dangling"));
    EXPECT_EQ(contentOf(file), "new");
    EXPECT_EQ(contentOf(folder / "elsewhere/new.txt"), "new");
    EXPECT_EQ(disk.status(folder / "relative")->kind, FileKind::symbolicLink);

    const FilePath pipe = folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::filesystem::create_symlink("loop", (folder / "loop").bytes());
    for (const auto& [path, reason] : std::initializer_list<std::pair<FilePath, int>>{
             {folder / "elsewhere", EISDIR}, {pipe, ENOTSUP}, {folder / "loop", ELOOP}}) {
        const FileResult<void> written = writeDocument(disk, "text", path);
        ASSERT_FALSE(written);
        EXPECT_EQ(written.error().errnoValue, reason);
    }
    EXPECT_EQ(disk.status(pipe)->kind, FileKind::other);
    EXPECT_EQ(entriesIn(folder.path()), 7U);
}

} // namespace
} // namespace lumeo
