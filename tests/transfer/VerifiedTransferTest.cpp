#include "transfer/VerifiedTransfer.h"

#include "TransferWorld.h"
#include "platform/PosixFileSystem.h"
#include "support/FaultyFileSystem.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <future>
#include <thread>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace lumeo {
namespace {

constexpr std::string_view mismatch = "File verification failed: SHA-256 checksum mismatch.";
constexpr std::string_view appeared =
    "Destination file appeared during transfer; the source was left untouched.";

class VerifiedTransferTest : public testing::Test {
protected:
    FileTransactionItem transfer(const MediaItem& item, OperationMode mode) {
        return transfers().transferFile(item, *item.plannedDestinationURL, mode, token);
    }

    /// Created with the first transfer, because some tests first prepare the archive's place.
    VerifiedTransfer& transfers() {
        if (!transfers_) {
            run_.emplace(world.prepared(real, world.plan(OperationMode::move)));
            transfers_.emplace(disk, run_->archive, run_->journal.get());
        }
        return *transfers_;
    }

    /// Runs `action` before the first call of this kind to the disk.
    void once(std::string_view operation, std::function<void(const DiskCall&)> action) {
        disk.beforeEachCall([=, done = false](const DiskCall& call) mutable {
            if (!done && call.operation == operation) {
                done = true;
                action(call);
            }
        });
    }

    static void expectFailed(const FileTransactionItem& record, std::string_view reason) {
        EXPECT_EQ(record.status, TransactionStatus::failed);
        EXPECT_EQ(record.errorMessage, reason);
        EXPECT_EQ(record.verificationResult, std::nullopt);
    }

    TransferWorld world;
    PosixFileSystem real;
    FaultyFileSystem disk{real};
    TransferCancellationToken token;

private:
    std::optional<PreparedRun> run_;
    std::optional<VerifiedTransfer> transfers_;
};

TEST_F(VerifiedTransferTest, CopiesContentAloneAndTellsAllInTheRecord) {
    MediaItem& item = world.add("IMG_1.jpg", std::string(2'500'000, 'x'), "2021/2021-03 March/IMG_1.jpg");
    item.resolvedDate = codedEpoch;
    item.dateSource = DateSourceType::filename;
    ASSERT_EQ(chmod(item.sourceURL.c_str(), 0400), 0);
    const auto longAgo = std::filesystem::file_time_type::clock::now() - std::chrono::hours(10'000);
    std::filesystem::last_write_time(item.sourceURL.bytes(), longAgo);
    // A file that an earlier, killed attempt may have left.
    std::filesystem::create_directories(world.archived("2021/2021-03 March").bytes());
    std::ofstream(VerifiedCopy::temporaryPath(*item.plannedDestinationURL).bytes()) << "left over";

    const FileTransactionItem record = transfer(item, OperationMode::copy);

    EXPECT_EQ(record.status, TransactionStatus::verified);
    EXPECT_EQ(record.verificationResult, "Verified (SHA-256 Match)");
    EXPECT_EQ(record.sourceHash, digestOf(world.content("IMG_1.jpg")));
    EXPECT_EQ(record.destinationHash, record.sourceHash);
    EXPECT_EQ(record.dateSource, "Date inferred from filename");
    EXPECT_EQ(record.dateResolved, codedEpoch);
    EXPECT_EQ(world.archiveFiles(), std::vector<std::string>{"2021/2021-03 March/IMG_1.jpg"});
    world.expectSourcesIntact();
    world.expectNothingLost();
    const std::filesystem::path copy = item.plannedDestinationURL->bytes();
    EXPECT_GT(std::filesystem::last_write_time(copy), longAgo + std::chrono::hours(1));
    EXPECT_NE(std::filesystem::status(copy).permissions() & std::filesystem::perms::owner_write,
              std::filesystem::perms::none);
}

TEST_F(VerifiedTransferTest, TakesEveryNameThatAFileSystemTakes) {
    const std::string longest = std::string(120, 'a') + "\xC3\xA9" + std::string(129, 'b') + ".jpg";
    ASSERT_EQ(longest.size(), 255U);
    for (const std::string& name : {longest, std::string("\xFF\xFE\n.jpg"), std::string("empty.jpg")}) {
        const MediaItem& item = world.add(name, name == "empty.jpg" ? "" : "content of " + name, name);
        EXPECT_EQ(transfer(item, OperationMode::move).status, TransactionStatus::verified);
    }
    world.expectAllMoved();
    // A numbered name may be too long. This is reported before anything is copied.
    disk.failAction(FileAction::create, EIO);
    expectFailed(transfer(world.add("b.jpg", "b", std::string(256, 'b')), OperationMode::move),
                 "“" + std::string(256, 'b') + "” could not be examined: File name too long.");
    for (std::size_t cut = 240; cut <= 255; ++cut) {
        const FilePath path("/archive/" + std::string(cut - 5, 'a') + "\xE2\x82\xAC" + "bb");
        const FilePath temporary = VerifiedCopy::temporaryPath(path);
        EXPECT_LE(temporary.lastComponent().size(), 255U);
        EXPECT_TRUE(temporary.bytes().ends_with(".partial") && isValidUtf8(temporary.bytes()));
    }
}

TEST_F(VerifiedTransferTest, LeavesWhatIsThereAlone) {
    const MediaItem same = world.add("same.jpg", "same", "same.jpg");
    const MediaItem other = world.add("other.jpg", "other", "other.jpg");
    std::filesystem::create_directory(world.archived("").bytes());
    std::ofstream(same.plannedDestinationURL->bytes()) << "same";
    std::ofstream(other.plannedDestinationURL->bytes()) << "somebody's";
    const MediaItem linked = world.add("linked.jpg", "same", "linked.jpg");
    std::filesystem::create_symlink("same.jpg", linked.plannedDestinationURL->bytes());
    disk.failAction(FileAction::create, EIO); // not even a temporary file is created

    expectFailed(transfer(linked, OperationMode::move),
                 "Destination already exists and was not overwritten.");
    const FileTransactionItem skipped = transfer(same, OperationMode::move);
    EXPECT_EQ(skipped.status, TransactionStatus::skipped);
    EXPECT_EQ(skipped.verificationResult, "Skipped (Identical destination already exists)");
    EXPECT_EQ(skipped.sourceHash, digestOf("same"));
    EXPECT_EQ(skipped.destinationHash, digestOf("same"));

    const FileTransactionItem refused = transfer(other, OperationMode::move);
    expectFailed(refused, "Destination already exists and was not overwritten.");
    EXPECT_EQ(refused.sourceHash, digestOf("other"));
    EXPECT_EQ(refused.destinationHash, digestOf("somebody's"));
    EXPECT_EQ(contentOf(*other.plannedDestinationURL), "somebody's");
    world.expectSourcesIntact();
}

TEST_F(VerifiedTransferTest, CallsNoFileArchivedThatWasEditedSinceItsDigestWasTaken) {
    MediaItem& item = world.add("a.jpg", "before", "a.jpg");
    item.sha256Hash = digestOf("before");
    std::filesystem::create_directory(world.archived("").bytes());
    std::ofstream(item.plannedDestinationURL->bytes()) << "before";
    item.filesystemModificationDate = real.status(item.sourceURL)->modificationDate;
    EXPECT_EQ(transfer(item, OperationMode::copy).status, TransactionStatus::skipped);
    std::ofstream(item.sourceURL.bytes()) << "EDITED";
    expectFailed(transfer(item, OperationMode::copy), "Destination already exists and was not overwritten.");
}

TEST_F(VerifiedTransferTest, BuildsNoArchiveWhereItsVolumeWas) {
    const FilePath root = world.archived("");
    EXPECT_EQ(transfer(world.add("a.jpg", "a", "2021/a.jpg"), OperationMode::move).status,
              TransactionStatus::verified);
    std::filesystem::rename(root.bytes(), root.bytes() + ".unmounted");
    // Another device appears under the name, as below a mount point.
    if (const TempFolder elsewhere;
        real.status(elsewhere.path())->identity.device != real.status(root.parent())->identity.device) {
        std::filesystem::create_directory_symlink(elsewhere.path().bytes(), root.bytes());
        expectFailed(transfer(world.add("c.jpg", "c", "2021/c.jpg"), OperationMode::move),
                     "“2021” could not be created as a folder: No such device.");
        std::filesystem::remove(root.bytes());
    }
    const FileTransactionItem left = transfer(world.add("b.jpg", "b", "2021/b.jpg"), OperationMode::move);
    expectFailed(left, "“2021” could not be created as a folder: No such device.");
    EXPECT_FALSE(isThere(root));
    EXPECT_TRUE(isThere(world.source("b.jpg")));
}

TEST_F(VerifiedTransferTest, NeverRemovesAFileThatIsItsOwnDestination) {
    MediaItem& item = world.add("a.jpg", "only one", "a.jpg");
    std::filesystem::create_directory_symlink(world.source("").bytes(), world.archived("").bytes());
    EXPECT_EQ(transfer(item, OperationMode::move).status, TransactionStatus::skipped);
    item.plannedDestinationURL = world.archived("b.jpg");
    std::filesystem::create_hard_link(item.sourceURL.bytes(), item.plannedDestinationURL->bytes());
    EXPECT_EQ(transfer(item, OperationMode::move).status, TransactionStatus::skipped);
    world.expectSourcesIntact();
}

TEST_F(VerifiedTransferTest, LeavesWhatIsNoLeftOverUnderTheTemporaryName) {
    const MediaItem folder = world.add("a.jpg", "a", "a.jpg");
    const MediaItem link = world.add("b.jpg", "b", "b.jpg");
    std::filesystem::create_directories(world.archived("a.jpg.partial").bytes());
    std::filesystem::create_hard_link(link.sourceURL.bytes(), world.archived("b.jpg.partial").bytes());
    // Another process is writing it.
    const MediaItem live = world.add("c.jpg", "c", "c.jpg");
    const auto writer = *real.createFile(world.archived("c.jpg.partial"), FileAccess::everyone);
    ASSERT_TRUE(writer->lock());
    for (const MediaItem& item : {folder, link, live}) {
        expectFailed(transfer(item, OperationMode::move), "Could not create the temporary transfer file.");
        EXPECT_TRUE(isThere(VerifiedCopy::temporaryPath(*item.plannedDestinationURL)));
    }
    world.expectSourcesIntact();
}

TEST_F(VerifiedTransferTest, KeepsAFileThatAppearsMeanwhile) {
    const MediaItem& item = world.add("a.jpg", "a", "a.jpg");
    once("renameWithoutReplacing",
         [](const DiskCall& call) { std::ofstream(call.newPath.bytes()) << "theirs"; });
    expectFailed(transfer(item, OperationMode::move), appeared);
    EXPECT_EQ(contentOf(*item.plannedDestinationURL), "theirs");
    world.expectNoPartialFiles();
    world.expectSourcesIntact();
}

TEST_F(VerifiedTransferTest, NamesNoCopyThatDiffersFromItsSource) {
    MediaItem& stale = world.add("stale.jpg", "edited since", "2021/2021-03 March/stale.jpg");
    stale.sha256Hash = digestOf("as it was");
    const FileTransactionItem record = transfer(stale, OperationMode::move);
    expectFailed(record, mismatch);
    EXPECT_EQ(record.sourceHash, digestOf("as it was"));
    EXPECT_EQ(record.destinationHash, digestOf("edited since"));
    EXPECT_FALSE(isThere(world.archived("2021"))) << "made for nothing";
    EXPECT_TRUE(transfers().flushFolders().empty()) << "what is gone is not asked for";

    const MediaItem& misread = world.add("misread.jpg", std::string(3'000'000, 'm'), "misread.jpg");
    disk.flipBitWhenReading([](const FilePath& path) { return path.extension() == "partial"; }, 2'999'999);
    expectFailed(transfer(misread, OperationMode::move), mismatch);
    world.expectSourcesIntact();

    const MediaItem& growing = world.add("growing.jpg", "beginning", "growing.jpg");
    disk.beforeEachCall([&, isCopied = false](const DiskCall& call) mutable {
        isCopied = isCopied || call.operation == "write";
        if (isCopied && call.operation == "openForReading" && call.path == growing.sourceURL) {
            std::ofstream(growing.sourceURL.bytes(), std::ios::app) << " and more";
        }
    });
    expectFailed(transfer(growing, OperationMode::move), mismatch);
    EXPECT_EQ(contentOf(growing.sourceURL), "beginning and more");
    EXPECT_EQ(world.archiveFiles(), std::vector<std::string>{});
}

TEST_F(VerifiedTransferTest, KeepsASourceThatIsNoLongerWhatWasCopied) {
    for (const std::string name : {"edited", "replaced", "linked"}) {
        const MediaItem& item = world.add(name, "before", name);
        once("flushFolder", [&](const DiskCall&) {
            const std::string path = item.sourceURL.bytes();
            if (name == "edited") {
                std::ofstream(path) << "EDITED";
                return;
            }
            std::filesystem::rename(path, path + ".aside");
            if (name == "linked") {
                std::filesystem::create_symlink(path + ".aside", path);
            } else {
                std::filesystem::copy_file(path + ".aside", path);
            }
        });
        expectFailed(transfer(item, OperationMode::move),
                     "Source file changed after it was copied and was not removed.");
        EXPECT_TRUE(isThere(item.sourceURL));
        EXPECT_EQ(contentOf(*item.plannedDestinationURL), "before");
    }
}

TEST_F(VerifiedTransferTest, KeepsAnotherFileOfTheSameSizeAndDates) {
    const FilePath source = world.source("card/a.jpg");
    const FilePath twin = world.source("other/a.jpg");
    const MediaItem item = world.add("card/a.jpg", "before", "a.jpg");
    world.add("other/a.jpg", "BEFORE", "none.jpg");
    // Both are written within one tick of the file system's clock.
    const auto dates = [this](const FilePath& path) {
        const FileStatus status = *real.status(path);
        return std::pair(status.modificationDate, status.changeDate);
    };
    bool isOneTick = false;
    for (int attempt = 0; attempt < 1000 && !isOneTick; ++attempt) {
        std::ofstream(source.bytes()) << "before";
        std::ofstream(twin.bytes()) << "BEFORE";
        isOneTick = dates(source) == dates(twin);
    }
    if (!isOneTick) {
        GTEST_SKIP() << "this file system gives no two files one date";
    }
    once("flushFolder", [&](const DiskCall&) {
        std::filesystem::rename(source.parent().bytes(), world.source("aside").bytes());
        std::filesystem::rename(twin.parent().bytes(), source.parent().bytes());
    });
    expectFailed(transfer(item, OperationMode::move),
                 "Source file changed after it was copied and was not removed.");
    EXPECT_EQ(contentOf(source), "BEFORE");
}

TEST_F(VerifiedTransferTest, KeepsASourceWhoseDateWasPutBackAfterAnEdit) {
    const MediaItem& item = world.add("a.jpg", "before", "a.jpg");
    once("flushFolder", [&](const DiskCall&) {
        const auto date = std::filesystem::last_write_time(item.sourceURL.bytes());
        std::ofstream(item.sourceURL.bytes()) << "EDITED";
        std::filesystem::last_write_time(item.sourceURL.bytes(), date);
    });
    // The change date must differ from the date of creation.
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    expectFailed(transfer(item, OperationMode::move),
                 "Source file changed after it was copied and was not removed.");
}

TEST_F(VerifiedTransferTest, KeepsASourceThatSomebodyIsWriting) {
    const MediaItem& written = world.add("a.jpg", "so far", "a.jpg");
    const auto writer = *real.openForAppending(written.sourceURL);
    expectFailed(transfer(written, OperationMode::move), "Source file is in use and was not removed.");
    const std::string more = " and more";
    ASSERT_TRUE(writer->write(std::as_bytes(std::span(more))));
    EXPECT_EQ(contentOf(written.sourceURL), "so far and more");
    EXPECT_EQ(contentOf(*written.plannedDestinationURL), "so far");

    const MediaItem& read = world.add("b.jpg", "b", "b.jpg");
    const auto reader = *real.openForReading(read.sourceURL);
    EXPECT_EQ(transfer(read, OperationMode::move).status, TransactionStatus::verified);
    EXPECT_FALSE(isThere(read.sourceURL));
}

TEST_F(VerifiedTransferTest, RemovesNoSourceForACopyThatLostItsName) {
    constexpr std::string_view lost =
        "The copy lost its name to another program; the source was left untouched.";
    // The name is taken before the copy gets it, and after.
    for (const std::string name : {"before.jpg", "after.jpg"}) {
        const MediaItem& item = world.add(name, "content of " + name, name);
        const FilePath partial = VerifiedCopy::temporaryPath(*item.plannedDestinationURL);
        bool isFlushed = false;
        bool isDone = false;
        disk.beforeEachCall([&](const DiskCall& call) {
            isFlushed = isFlushed || call.operation == "flush";
            const bool isTheMoment = name == "before.jpg"
                                         ? isFlushed && call.path == partial && call.operation == "status"
                                         : isFlushed && call.path == *item.plannedDestinationURL;
            if (isTheMoment && !isDone) {
                isDone = true;
                std::filesystem::remove(call.path.bytes());
                std::ofstream(call.path.bytes()) << "theirs";
            }
        });
        expectFailed(transfer(item, OperationMode::move), lost);
        EXPECT_EQ(contentOf(name == "before.jpg" ? partial : *item.plannedDestinationURL), "theirs");
    }
    world.expectSourcesIntact();
}

TEST_F(VerifiedTransferTest, ReadsTheCopyBackFromTheDevice) {
    const MediaItem& item = world.add("a.jpg", "content", "a.jpg");
    std::vector<std::string> calls;
    disk.beforeEachCall([&](const DiskCall& call) {
        if (call.path.extension() == "partial") {
            calls.emplace_back(call.operation);
        }
    });
    EXPECT_EQ(transfer(item, OperationMode::copy).status, TransactionStatus::verified);
    const auto evicted = std::ranges::find(calls, "evict");
    EXPECT_TRUE(std::find(calls.begin(), evicted, "flush") != evicted);
    EXPECT_EQ(std::find(calls.begin(), evicted, "readAt"), evicted);
    EXPECT_NE(std::find(evicted, calls.end(), "readAt"), calls.end());
}

TEST_F(VerifiedTransferTest, CancelPreventsTheRemovalOrWaitsForIt) {
    const MediaItem before = world.add("before.jpg", "1", "before.jpg");
    once("flushFolder", [&](const DiskCall&) { token.cancel(); });
    const FileTransactionItem kept = transfer(before, OperationMode::move);
    EXPECT_EQ(kept.status, TransactionStatus::verified);
    EXPECT_EQ(kept.verificationResult, "Verified; move cancelled before source deletion");
    EXPECT_TRUE(isThere(before.sourceURL));

    const MediaItem during = world.add("during.jpg", "2", "during.jpg");
    TransferCancellationToken fresh;
    std::future<bool> sourceWasThere;
    once("removeFile", [&](const DiskCall&) {
        sourceWasThere = std::async(std::launch::async, [&] {
            fresh.cancel();
            return isThere(during.sourceURL);
        });
        EXPECT_EQ(sourceWasThere.wait_for(std::chrono::milliseconds(20)), std::future_status::timeout);
    });
    const FileTransactionItem moved =
        transfers().transferFile(during, *during.plannedDestinationURL, OperationMode::move, fresh);
    EXPECT_EQ(moved.verificationResult, "Verified (SHA-256 Match)");
    EXPECT_FALSE(sourceWasThere.get());
}

TEST_F(VerifiedTransferTest, AFolderRefusedOnceHoldsBackEveryRemovalBelowIt) {
    disk.failWhen(
        [seen = 0](const DiskCall& call) mutable { return call.operation == "flushFolder" && ++seen == 1; },
        EIO);
    for (const std::string name : {"a.jpg", "b.jpg"}) {
        const MediaItem& item = world.add(name, name, "2021/" + name);
        const FileTransactionItem record = transfer(item, OperationMode::move);
        EXPECT_EQ(record.status, TransactionStatus::failed);
        EXPECT_NE(record.errorMessage->find("Input/output error"), std::string::npos);
        EXPECT_TRUE(isThere(*item.plannedDestinationURL));
    }
    world.expectSourcesIntact();
}

} // namespace
} // namespace lumeo
