#include "hashing/StreamingHashService.h"

#include "platform/PosixFileSystem.h"
#include "support/FaultyFileSystem.h"
#include "support/TempFolder.h"

#include <cerrno>

#include <gtest/gtest.h>

namespace lumeo {
namespace {

constexpr std::size_t mebibyte = 1024 * 1024;

bool never() {
    return false;
}

class StreamingHashServiceTest : public testing::Test {
protected:
    Result<std::string, HashError> hash(const FilePath& path, const CancellationCheck& cancelled = never) {
        return StreamingHashService::computeSHA256(disk, path, StreamingHashService::chunkSize, cancelled);
    }

    TempFolder folder;
    PosixFileSystem real;
    FaultyFileSystem disk{real};
};

TEST_F(StreamingHashServiceTest, GivesTheStandardDigestAtEverySizeAroundAChunk) {
    EXPECT_EQ(*hash(folder.write("empty", "")),
              "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(*hash(folder.write("abc", "abc")),
              "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(*hash(folder.write("chunk", std::string(mebibyte, 'a'))),
              "9bc1b2a288b26af7257a36277ae3816a7d4f16e89c1e7e77d0a5c48bad62b360");
    EXPECT_EQ(*hash(folder.write("more", std::string(mebibyte + 1, 'a'))),
              "4a3f0c0c213adea174f9a3d4c13177315b588bdb2e9c1012d3d0bf0453ca0f6a");
}

TEST_F(StreamingHashServiceTest, TellsTheFilesOwnErrorWithoutAskingForCancellation) {
    const auto fails = [] {
        ADD_FAILURE() << "asked";
        return false;
    };
    EXPECT_EQ(std::get<FileError>(hash(folder / "missing", fails).error()).errnoValue, ENOENT);
    EXPECT_EQ(std::get<FileError>(hash(folder.path(), fails).error()).errnoValue, EISDIR);

    const FilePath file = folder.write("file", std::string(3 * mebibyte, 'x'));
    disk.failCall(disk.callCount() + 3, EIO); // opened, read, read again
    EXPECT_EQ(std::get<FileError>(hash(file).error()), (FileError{FileAction::read, file, EIO}));
}

TEST_F(StreamingHashServiceTest, StopsAtTheNextChunkAndAtTheEnd) {
    const HashError cancelled = Cancelled{};
    EXPECT_EQ(hash(folder.write("empty", ""), [] { return true; }).error(), cancelled);

    const FilePath file = folder.write("file", std::string(3 * mebibyte, 'x'));
    int asked = 0;
    EXPECT_EQ(hash(file, [&] { return ++asked == 2; }).error(), cancelled);
    EXPECT_EQ(disk.callCount(), 2U + 3U); // both opened, the end of the empty file and two chunks read
}

} // namespace
} // namespace lumeo
