#include "TransferWorld.h"
#include "planning/DestinationPlanner.h"
#include "platform/PosixFileSystem.h"
#include "platform/volumes/DiskTable.h"
#include "proof/ChecksumList.h"
#include "support/FakeClock.h"
#include "support/FaultyFileSystem.h"
#include "support/ForeignFileSystem.h"
#include "transfer/FileOperationEngine.h"
#include "transfer/SourceProof.h"
#include "transfer/UndoEngine.h"

#include <cerrno>
#include <filesystem>
#include <random>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace lumeo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// Names that this system's disks accept. On other disks, many of them are equal or invalid.
std::set<std::string> awkwardNames(std::size_t count) {
    const std::vector<std::string> pieces{
        "IMG",  "img", "\u00E9", "e\u0301",    "\u00C9", "\u0131", "I",   "ss", "\u212A",
        "k",    ":",   "?",      "*",          "\"",     "<",      "\\",  ".",  " ",
        "\x01", "\n",  "\u8A9E", "\U0001F600", "_2",     "con",    "\xFF"};
    std::set<std::string> names{"Photo 2021-03-14 15:30:45.jpg", "a.JPG", "a.jpg", "A.JPG", "nul.jpg"};
    std::mt19937 random(1);
    while (names.size() < count) {
        std::string name = random() % 8 == 0 ? std::string(248 - random() % 3, 'x') : std::string();
        for (auto i = 1 + random() % 5; i > 0; --i) {
            name += pieces[random() % pieces.size()];
        }
        name.resize(std::min<std::size_t>(name.size(), 251));
        names.insert(name + (random() % 2 == 0 ? ".jpg" : ".JPG"));
    }
    return names;
}

TEST(ForeignDiskTest, EveryNameArrivesAndComesBackWhetherTheDiskIsKnownOrNot) {
    DiskTraits exFat = traitsOfType("exfat");
    exFat.countsUtf16 = false; // the disk below counts bytes
    for (const DiskTraits& told : {exFat, traitsOfType("fuseblk")}) {
        TransferWorld world;
        PosixFileSystem real;
        ForeignFileSystem disk(real, world.archived(""), exFat, told);
        const FakeClock clock;
        for (const std::string& name : awkwardNames(2000)) {
            world.add(name, "content of " + name, name);
        }
        std::filesystem::create_directory(world.archived("").bytes());
        const OrganizationPlan plan = world.plan(OperationMode::move);
        DestinationPlanner::plan(world.items, plan, disk);
        std::map<std::string, std::string> before = filesBelow(world.source(""));

        PreparedRun run = world.prepared(disk, plan);
        const OperationManifest journal =
            FileOperationEngine(disk, clock).execute(run, world.items, plan, [](const auto&) {});
        for (const FileTransactionItem& record : journal.items) {
            ASSERT_EQ(record.status, TransactionStatus::verified) << record.errorMessage.value_or("");
        }
        EXPECT_EQ(world.archiveFiles().size(), 2000U);
        EXPECT_THAT(filesBelow(world.source("")), IsEmpty());
        EXPECT_TRUE(UndoEngine(disk).rollback(journal).isComplete());
        EXPECT_EQ(filesBelow(world.source("")), before);
        EXPECT_THAT(world.archiveFiles(), IsEmpty()) << "nothing is left of what was tried";
    }
}

/// Forty files, and a disk below the archive that fails after ten of them.
struct FailingRun {
    FailingRun() {
        for (int number = 0; number < 40; ++number) {
            const std::string name = std::to_string(number) + ".jpg";
            world.add(name, "content of " + name, name);
        }
    }
    OperationManifest run(OperationMode mode) {
        PreparedRun run = world.prepared(disk, world.plan(mode));
        disk.beforeEachCall([this, files = 0](const DiskCall& call) mutable {
            files += call.operation == "createFile" ? 1 : 0;
            if (files == 11) {
                ++files;
                meet();
            }
        });
        return FileOperationEngine(disk, clock).execute(run, world.items, world.plan(mode), [](const auto&) {
        });
    }
    void failToWrite(int reason) {
        disk.failWhen(
            [this](const DiskCall& call) {
                const bool changes = call.operation == "createFile" || call.operation == "write" ||
                                     call.operation == "renameWithoutReplacing";
                return changes && call.path.liesIn(world.archived(""));
            },
            reason);
    }
    void failAtSource(const std::string& name, std::string_view operation, int reason) {
        disk.failWhen(
            [this, name, operation](const DiskCall& call) {
                return call.operation == operation && call.path == world.source(name);
            },
            reason);
    }
    static void unplug(const FilePath& folder) {
        const std::string place = folder.parent().appending(folder.lastComponent()).bytes();
        std::filesystem::rename(place, place + ".gone");
    }

    TransferWorld world;
    PosixFileSystem real;
    FaultyFileSystem disk{real};
    FakeClock clock;
    std::function<void()> meet = [] {};
};

TEST(FailingDiskTest, ARunEndsEarlyOnceNothingMoreCanSucceedAndNotBefore) {
    struct Case {
        std::string notice; ///< empty when the run continues
        std::function<void(FailingRun&)> meet;
    };
    const std::vector<Case> cases{
        {"archive is full", [](FailingRun& run) { run.disk.limitSpace(3); }},
        {"archive is write-protected", [](FailingRun& run) { run.failToWrite(EROFS); }},
        {"archive takes nothing more", [](FailingRun& run) { run.failToWrite(EIO); }},
        {"archive is no longer there", [](FailingRun& run) { FailingRun::unplug(run.world.archived("")); }},
        {"sources is no longer there", [](FailingRun& run) { FailingRun::unplug(run.world.source("")); }},
        {"", [](FailingRun& run) { run.failAtSource("12.jpg", "read", EIO); }},
        {"", [](FailingRun& run) { std::filesystem::remove(run.world.source("12.jpg").bytes()); }},
    };
    for (const Case& one : cases) {
        FailingRun run;
        run.meet = [&] { one.meet(run); };
        const OperationManifest journal = run.run(OperationMode::copy);
        const auto failed =
            std::ranges::count(journal.items, TransactionStatus::failed, &FileTransactionItem::status);
        // If the archive is gone, its files may be gone too.
        EXPECT_TRUE(failed == 1 || one.notice == cases[3].notice) << one.notice;
        if (one.notice.empty()) {
            EXPECT_THAT(journal.notices, IsEmpty());
            EXPECT_EQ(journal.items.size(), 40U);
        } else {
            EXPECT_THAT(journal.notices, ElementsAre(HasSubstr(one.notice)));
            EXPECT_LT(journal.items.size(), 13U) << one.notice;
        }
    }
}

TEST(FailingDiskTest, SourcesThatNobodyMayRemoveAreToldOnceAndTheirCopiesCanBeTakenBack) {
    FailingRun run;
    run.disk.failWhen(
        [&](const DiskCall& call) {
            return call.operation == "removeFile" && call.path.liesIn(run.world.source(""));
        },
        EROFS);
    const OperationManifest journal = run.run(OperationMode::move);
    EXPECT_THAT(journal.notices, ElementsAre(HasSubstr("40 sources could not be removed")));
    EXPECT_EQ(run.world.archiveFiles().size(), 40U);
    const UndoResult undone = UndoEngine(run.disk).rollback(journal);
    EXPECT_EQ(undone.restoredCount, 40);
    EXPECT_THAT(run.world.archiveFiles(), IsEmpty());
    run.world.expectSourcesIntact();
}

TEST(FailingDiskTest, AFileThatTheDiskHasNoRoomForInOneFailsBeforeItIsBegun) {
    TransferWorld world;
    PosixFileSystem real;
    ForeignFileSystem disk(real, world.archived(""), {}, {.largestFile = 10, .isCertain = true});
    const FakeClock clock;
    world.add("large.mov", "more than ten bytes", "large.mov");
    world.add("small.jpg", "not more", "small.jpg");
    const OrganizationPlan plan = world.plan(OperationMode::copy);
    PreparedRun run = world.prepared(disk, plan);
    const OperationManifest journal =
        FileOperationEngine(disk, clock).execute(run, world.items, plan, [](const auto&) {});
    EXPECT_THAT(journal.items.front().errorMessage.value_or(""), HasSubstr("File too large"));
    EXPECT_THAT(world.archiveFiles(), ElementsAre("small.jpg"));
}

TEST(ChecksumsTest, ARunListsWhatItHasProvenAndItsUndoTakesThatOutAgain) {
    TransferWorld world;
    PosixFileSystem real;
    const FakeClock clock;
    const RunJournals journals(real, world.journalFolder());
    OrganizationPlan plan = world.plan(OperationMode::copy);
    plan.listsChecksums = true;
    const auto run = [&] {
        PreparedRun prepared = world.prepared(real, plan);
        return FileOperationEngine(real, clock).execute(prepared, world.items, plan, [](const auto&) {});
    };
    const auto listed = [&] {
        std::vector<std::string> names;
        const std::vector<Checksum> list = ChecksumList::read(real, world.archived(""))->checksums;
        for (const Checksum& checksum : list) {
            EXPECT_EQ(checksum.digest, digestOf("content of " + checksum.name));
            names.push_back(checksum.name);
        }
        return names;
    };
    world.add("a.jpg", "content of a.jpg", "a.jpg");
    run();
    world.add("b\n.jpg", "content of b\n.jpg", "b\n.jpg");
    world.add("gone.jpg", "content of gone.jpg", "gone.jpg");
    std::filesystem::remove(world.source("gone.jpg").bytes());
    const OperationManifest second = run();
    EXPECT_THAT(listed(), ElementsAre("a.jpg", "b\n.jpg"));
    EXPECT_TRUE(takeBack(real, second, journals, {}));
    EXPECT_THAT(listed(), ElementsAre("a.jpg")) << "which an earlier run brought";
}

TEST(SourceProofTest, CountsOnlyWhatTheRunHasProven) {
    TransferWorld world;
    for (const char* name :
         {"copied.jpg", "there.jpg", "failed.jpg", "twin.jpg", "lost twin.jpg", "unreached.jpg"}) {
        MediaItem& item = world.add(name, std::string("content of ") + name, name);
        item.exactDuplicateGroupID = Uuid::random();
        item.sha256Hash =
            digestOf(item.fileName() == "twin.jpg" ? "content of copied.jpg" : "content of failed.jpg");
    }
    OperationManifest run;
    run.sourceRoots = {FilePath("/elsewhere"), world.sourceRoots().front()};
    const auto add = [&](std::size_t item, TransactionStatus status, bool isCompared) {
        FileTransactionItem record = newRecord(world.items[item], *world.items[item].plannedDestinationURL);
        record.status = status;
        if (isCompared) {
            record.sourceHash = record.destinationHash =
                digestOf(world.content(world.items[item].fileName()));
        }
        run.items.push_back(record);
    };
    add(0, TransactionStatus::verified, true);
    add(1, TransactionStatus::skipped, true);
    add(2, TransactionStatus::failed, true);
    add(3, TransactionStatus::skipped, false);
    add(4, TransactionStatus::skipped, false);
    EXPECT_THAT(proveSources(run, world.items),
                ElementsAre(SourceProof{run.sourceRoots[0], 0, 0}, SourceProof{run.sourceRoots[1], 6, 3}));
}

} // namespace
} // namespace lumeo
