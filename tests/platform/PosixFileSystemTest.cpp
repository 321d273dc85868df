#include "platform/PosixFileSystem.h"

#include "platform/DocumentWriter.h"
#include "platform/LockHolder.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <linux/filter.h>
#include <linux/magic.h>
#include <linux/seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace lumeo {
namespace {

using std::chrono::microseconds;
using testing::ElementsAre;
using testing::IsEmpty;

/// The errno of a failure. 0 when there was none.
template<class Value>
int reasonOf(const FileResult<Value>& result) {
    return result ? 0 : result.error().errnoValue;
}

std::string readAll(ReadableFile& file) {
    std::string text;
    std::array<std::byte, 7> buffer{};
    for (;;) {
        const FileResult<std::size_t> count = file.read(buffer);
        if (!count || *count == 0) {
            EXPECT_TRUE(count);
            return text;
        }
        text.append(reinterpret_cast<const char*>(buffer.data()), *count);
    }
}

void makeLink(std::string_view target, const FilePath& path) {
    std::filesystem::create_symlink(target, path.bytes());
}

class PosixFileSystemTest : public testing::Test {
protected:
    TempFolder folder;
    PosixFileSystem disk;
};

TEST_F(PosixFileSystemTest, tellsEntriesFromWhatTheyLeadTo) {
    const FilePath file = folder.write("file", "12345");
    makeLink("file", folder / "link");
    makeLink("nowhere", folder / "dangling");
    std::filesystem::create_hard_link(file.bytes(), (folder / "twin").bytes());
    EXPECT_EQ(disk.status(file)->kind, FileKind::regular);
    EXPECT_EQ(disk.status(file)->size, 5);
    EXPECT_EQ(disk.status(folder.path())->kind, FileKind::folder);
    EXPECT_EQ(disk.status(folder / "link")->kind, FileKind::symbolicLink);
    EXPECT_NE(disk.status(folder / "link")->identity, disk.status(file)->identity);
    EXPECT_EQ(*disk.targetStatus(folder / "link"), *disk.status(file));
    EXPECT_EQ(disk.status(folder / "twin")->identity, disk.status(file)->identity);
    EXPECT_EQ(reasonOf(disk.targetStatus(folder / "dangling")), ENOENT);

    EXPECT_TRUE(disk.exists(folder / "dangling"));
    for (const std::string& absent :
         {std::string("none"), std::string("file/below"), std::string(256, 'n')}) {
        EXPECT_FALSE(disk.exists(folder / absent)) << absent;
    }
}

TEST_F(PosixFileSystemTest, opensNothingButRegularFiles) {
    const FilePath pipe = folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    makeLink("pipe", folder / "link");
    EXPECT_EQ(reasonOf(disk.openForReading(pipe)), ENOTSUP);
    EXPECT_EQ(reasonOf(disk.openForReading(folder / "link")), ENOTSUP);
    EXPECT_EQ(reasonOf(disk.openForReading(FilePath("/dev/null"))), ENOTSUP);
    EXPECT_EQ(reasonOf(disk.openForReading(folder.path())), EISDIR);
    EXPECT_EQ(reasonOf(disk.openForReading(folder / "none")), ENOENT);
    folder.write("file", "");
    EXPECT_EQ(reasonOf(disk.openForReading(folder / std::string("file\0.jpg", 9))), EINVAL);
}

TEST_F(PosixFileSystemTest, createsOnlyWhereNothingIs) {
    const FilePath path = folder / "new";
    {
        const auto file = disk.createFile(path, FileAccess::everyone).value();
        EXPECT_TRUE(file->write(std::as_bytes(std::span("one", 3))));
        EXPECT_TRUE(file->write({}));
        EXPECT_TRUE(file->write(std::as_bytes(std::span("two", 3))));
        EXPECT_TRUE(file->flush());
        file->evict();
        EXPECT_TRUE(file->close());
    }
    EXPECT_EQ(contentOf(path), "onetwo");
    std::array<std::byte, 4> buffer{};
    EXPECT_EQ(*(*disk.openForReading(path))->readAt(4, buffer), 2U);
    EXPECT_EQ(reasonOf(disk.createFile(path, FileAccess::everyone)), EEXIST);
    makeLink("target", folder / "dangling");
    EXPECT_EQ(reasonOf(disk.createFile(folder / "dangling", FileAccess::everyone)), EEXIST);
    EXPECT_FALSE(disk.exists(folder / "target"));
}

/// The share of a file's pages that are in memory.
double cachedShare(const FilePath& path) {
    const auto size = static_cast<std::size_t>(std::filesystem::file_size(path.bytes()));
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    void* const view = mmap(nullptr, size, PROT_READ, MAP_SHARED, file, 0);
    std::vector<unsigned char> pages(size / 4096);
    EXPECT_EQ(mincore(view, size, pages.data()), 0);
    munmap(view, size);
    close(file);
    const auto cached = std::ranges::count_if(pages, [](unsigned char page) { return (page & 1U) != 0; });
    return static_cast<double>(cached) / static_cast<double>(pages.size());
}

TEST_F(PosixFileSystemTest, evictsWhatWasFlushedSoThatItIsReadFromTheDevice) {
    const TempFolder onDisk{FilePath(std::filesystem::current_path().string())};
    const FilePath path = onDisk / "file";
    const auto file = disk.createFile(path, FileAccess::ownerOnly).value();
    const std::vector<std::byte> bytes(std::size_t{8} << 20, std::byte{7});
    ASSERT_TRUE(file->write(bytes));
    ASSERT_TRUE(file->flush());
    struct statfs told {};
    ASSERT_EQ(statfs(path.c_str(), &told), 0);
    if (told.f_type == TMPFS_MAGIC || cachedShare(path) < 0.9) {
        GTEST_SKIP() << "this file system keeps no pages that it could drop";
    }
    file->evict();
    EXPECT_LT(cachedShare(path), 0.1);
    std::array<std::byte, 4> buffer{};
    EXPECT_EQ(*file->readAt((8 << 20) - 2, buffer), 2U);
    EXPECT_EQ(buffer[1], std::byte{7});
    EXPECT_EQ(file->status()->identity, disk.status(path)->identity);
    EXPECT_EQ(std::filesystem::status(path.bytes()).permissions(), std::filesystem::perms(0600));
}

TEST_F(PosixFileSystemTest, aLockIsHeldByOneAndTellsWho) {
    const FilePath path = folder.write("file", "");
    for (const FilePath& place : {path, folder.path()}) {
        auto first = disk.lock(place);
        ASSERT_TRUE(first);
        EXPECT_EQ((*first)->status()->identity, disk.status(place)->identity);
        EXPECT_EQ(reasonOf(disk.lock(place)), EWOULDBLOCK);
        EXPECT_THAT(lockHolder((*first)->status()->identity).value_or(""),
                    testing::EndsWith("(process " + std::to_string(getpid()) + ")"));
        first->reset();
        EXPECT_TRUE(disk.lock(place));
    }
    EXPECT_EQ(lockHolder(disk.status(path)->identity), std::nullopt);
    const auto writer = disk.openForAppending(path).value();
    ASSERT_TRUE(writer->lock());
    EXPECT_EQ(reasonOf(disk.lock(path)), EWOULDBLOCK);
    EXPECT_TRUE((*disk.openForReading(path))->isOpenForWriting());
    ASSERT_TRUE(writer->close());
    EXPECT_FALSE((*disk.openForReading(path))->isOpenForWriting());
}

TEST_F(PosixFileSystemTest, aWriterThatComesWhileItIsAskedForEndsNothing) {
    const FilePath path = folder.write("file", "");
    const auto reader = disk.openForReading(path).value();
    std::atomic<bool> isOver = false;
    std::jthread writer([&] {
        while (!isOver) {
            static_cast<void>(disk.openForAppending(path)); // breaks a lease that is held at this moment
        }
    });
    for (int asked = 0; asked < 20'000; ++asked) {
        static_cast<void>(reader->isOpenForWriting());
    }
    isOver = true;
}

TEST_F(PosixFileSystemTest, aWriteThatTheSystemCutsShortGoesOnUntilItFails) {
    const FilePath path = folder / "file";
    const auto tryIt = [&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{1000, 1000};
        setrlimit(RLIMIT_FSIZE, &limit);
        const std::vector<std::byte> bytes(4096);
        const auto file = disk.createFile(path, FileAccess::everyone).value();
        _exit(reasonOf(file->write(bytes)));
    };
    EXPECT_EXIT(tryIt(), testing::ExitedWithCode(EFBIG), "");
    EXPECT_EQ(disk.status(path)->size, 1000);
}

TEST_F(PosixFileSystemTest, createsTheMissingFoldersTellsThemAndRemovesNone) {
    EXPECT_THAT(disk.createFolders(folder / "a/b/c").value(),
                ElementsAre(folder / "a", folder / "a/b", folder / "a/b/c"));
    EXPECT_THAT(disk.createFolders(folder / "a/b").value(), IsEmpty());
    makeLink("a", folder / "link");
    EXPECT_THAT(disk.createFolders(folder / "link/d").value(), ElementsAre(folder / "link/d"));
    EXPECT_THAT(disk.createFolders(folder / "a//e/").value(), ElementsAre(folder / "a//e/"));
    folder.write("file", "");
    EXPECT_EQ(reasonOf(disk.createFolders(folder / "file")), ENOTDIR);
    EXPECT_EQ(reasonOf(disk.createFolders(folder / "file/a/b")), ENOTDIR);
    makeLink("nowhere", folder / "dangling");
    EXPECT_EQ(reasonOf(disk.createFolders(folder / "dangling/a")), EEXIST);

    EXPECT_EQ(reasonOf(disk.removeFile(folder.path())), EISDIR);
    EXPECT_TRUE(disk.flushFolder(FilePath("/proc/self"))); // does not support flushing
    EXPECT_EQ(reasonOf(disk.flushFolder(folder / "none")), ENOENT);
}

TEST_F(PosixFileSystemTest, doesAllOfItBeyondTheLengthOfAPathText) {
    FilePath deep = folder.path();
    while (deep.bytes().size() < 3 * 4096) {
        deep = deep.appending(std::string(255, 'd'));
    }
    ASSERT_TRUE(disk.createFolders(deep));
    const FilePath from = deep.appending("from");
    const FilePath to = deep.appending("to");
    ASSERT_TRUE(writeDocument(disk, "text", from));
    EXPECT_EQ(disk.status(from)->size, 4);
    EXPECT_EQ(readAll(**disk.openForReading(from)), "text");
    EXPECT_TRUE(disk.renameWithoutReplacing(from, to));
    EXPECT_FALSE(disk.exists(from));
    EXPECT_TRUE(disk.flushFolder(deep));
    EXPECT_GT(disk.volumeSpace(to)->available, 0);
    EXPECT_EQ((*disk.enumerate(deep, {}))->next()->path, to);
    EXPECT_TRUE(disk.removeFile(to));

    // Slashes and single names where the pieces of a path meet.
    EXPECT_TRUE(disk.exists(FilePath(std::string(10'000, '/') + "tmp" + std::string(10'000, '/'))));
    EXPECT_EQ(reasonOf(disk.status(FilePath("/" + std::string(10'000, 'n')))), ENAMETOOLONG);
    EXPECT_EQ(reasonOf(disk.status(folder / (std::string(10'000, 'n') + "/a"))), ENAMETOOLONG);
}

/// Makes `systemCall` fail with `reason` in this process from now on.
void forbid(unsigned systemCall, unsigned reason) {
    std::array<sock_filter, 4> program{{
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, systemCall, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | reason),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    }};
    const sock_fprog filter{program.size(), program.data()};
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
        prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter, 0, 0) != 0) {
        _exit(99);
    }
}

/// What a file system supports: renaming without replacing, only links, or neither.
enum class Ability { all, links, none };

class RenameTest : public PosixFileSystemTest, public testing::WithParamInterface<Ability> {
protected:
    /// Renames in a process of its own that has only this ability. Returns the errno of the failure, or 0.
    int reasonOfRename(const FilePath& from, const FilePath& to) {
        const pid_t child = fork();
        if (child == 0) {
            if (GetParam() != Ability::all) {
                forbid(SYS_renameat2, EINVAL);
            }
            if (GetParam() == Ability::none) {
                forbid(SYS_linkat, EPERM);
            }
            _exit(reasonOf(disk.renameWithoutReplacing(from, to)));
        }
        int status = 0;
        EXPECT_EQ(waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFEXITED(status));
        return WEXITSTATUS(status);
    }
};

TEST_P(RenameTest, takesAFreeNameButNeverATakenOne) {
    const FilePath from = folder.write("from", "text");
    const FilePath file = folder.write("file", "kept");
    makeLink("nowhere", folder / "dangling");
    ASSERT_TRUE(disk.createFolders(folder / "folder"));
    for (const std::string_view taken : {"file", "dangling", "folder", "from"}) {
        EXPECT_EQ(reasonOfRename(from, folder / taken), EEXIST) << taken;
    }
    EXPECT_EQ(contentOf(from), "text");
    EXPECT_EQ(contentOf(file), "kept");
    EXPECT_EQ(disk.status(folder / "dangling")->kind, FileKind::symbolicLink);

    EXPECT_EQ(reasonOfRename(from, folder / "none/to"), ENOENT);
    EXPECT_EQ(reasonOfRename(from, folder / "folder/to"), 0);
    EXPECT_EQ(contentOf(folder / "folder/to"), "text");
    EXPECT_FALSE(disk.exists(from));
    EXPECT_EQ(reasonOfRename(from, folder / "none"), ENOENT);
}

TEST_P(RenameTest, doesNotLeaveTheFileSystem) {
    const FilePath memory("/dev/shm");
    const FilePath from = folder.write("from", "text");
    const FileResult<FileStatus> other = disk.targetStatus(memory);
    if (!other || other->identity.device == disk.status(from)->identity.device) {
        GTEST_SKIP() << "no second file system at hand";
    }
    const FilePath to = memory.appending(folder.path().lastComponent());
    EXPECT_EQ(reasonOfRename(from, to), EXDEV);
    EXPECT_FALSE(disk.exists(to));
    EXPECT_EQ(contentOf(from), "text");
}

INSTANTIATE_TEST_SUITE_P(Abilities, RenameTest, testing::Values(Ability::all, Ability::links, Ability::none));

TEST_F(PosixFileSystemTest, aRenameThatCannotGiveUpTheOldNameTakesTheNewOneBack) {
    const FilePath from = folder.write("locked/from", "text");
    ASSERT_TRUE(disk.createFolders(folder / "open"));
    const auto tryIt = [&] {
        constexpr uid_t nobody = 65534;
        for (const FilePath& path : {folder.path(), folder / "locked", from, folder / "open"}) {
            if (geteuid() == 0 && chown(path.c_str(), nobody, nobody) != 0) {
                _exit(98);
            }
        }
        chmod((folder / "locked").c_str(), 0555);
        if (geteuid() == 0 && setresuid(nobody, nobody, nobody) != 0) {
            _exit(97);
        }
        forbid(SYS_renameat2, EINVAL);
        const int reason = reasonOf(disk.renameWithoutReplacing(from, folder / "open/to"));
        chmod((folder / "locked").c_str(), 0755);
        _exit(reason);
    };
    EXPECT_EXIT(tryIt(), testing::ExitedWithCode(EACCES), "");
    EXPECT_EQ(contentOf(from), "text");
    EXPECT_FALSE(disk.exists(folder / "open/to"));
}

} // namespace
} // namespace lumeo
