#include "PowerLoss.h"
#include "TransferWorld.h"
#include "platform/PosixFileSystem.h"
#include "support/FakeClock.h"
#include "support/FaultyFileSystem.h"
#include "transfer/FileOperationEngine.h"
#include "transfer/JournalReader.h"
#include "transfer/UndoEngine.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <random>
#include <semaphore>
#include <set>
#include <thread>

#include <gtest/gtest.h>

namespace lumeo {
namespace {

constexpr std::size_t smallMovie = 1'000;
constexpr std::size_t twoChunkMovie = 1'048'600;

/// Two files that make the runs differ: one has a known digest, and both need new folders.
void fill(TransferWorld& world, std::size_t movieSize = smallMovie) {
    world.add("a.jpg", "content of a", "2021/2021-03 March/a.jpg").sha256Hash = digestOf("content of a");
    world.add("b.mov", std::string(movieSize, 'b'), "2022/b.mov");
}

OperationManifest run(const TransferWorld& world, OperationMode mode, FileSystem& fileSystem) {
    const FakeClock clock;
    const OrganizationPlan plan = world.plan(mode);
    // The journal is kept through the same disk. If it cannot be kept, the run is refused and nothing is
    // done.
    Result<PreparedRun, RunRefusal> run = world.prepare(fileSystem, fileSystem, plan);
    return run ? FileOperationEngine(fileSystem, clock).execute(*run, world.items, plan, [](const auto&) {})
               : OperationManifest();
}

class TransferSafetyTest : public testing::TestWithParam<OperationMode> {
protected:
    /// The number of calls of a run without faults.
    std::size_t callsOfARun(std::size_t movieSize = smallMovie) {
        TransferWorld world;
        fill(world, movieSize);
        FaultyFileSystem disk(real);
        run(world, GetParam(), disk);
        return disk.callCount();
    }

    PosixFileSystem real;
};

INSTANTIATE_TEST_SUITE_P(, TransferSafetyTest, testing::Values(OperationMode::copy, OperationMode::move),
                         [](const auto& mode) { return std::string(rawValue(mode.param)); });

void expectTellsTheTruth(const TransferWorld& world, const FileTransactionItem& record, OperationMode mode) {
    if (record.status == TransactionStatus::verified) {
        EXPECT_EQ(record.sourceHash, record.destinationHash);
        EXPECT_TRUE(isThere(record.destinationPath));
        const bool isKept = record.verificationResult == "Verified; the source could not be removed";
        EXPECT_EQ(isThere(record.originalPath), mode == OperationMode::copy || isKept);
        EXPECT_FALSE(record.errorMessage);
    } else {
        EXPECT_EQ(record.status, TransactionStatus::failed);
        EXPECT_TRUE(isThere(record.originalPath));
        EXPECT_TRUE(record.errorMessage && !record.errorMessage->empty());
        EXPECT_FALSE(record.verificationResult);
    }
    world.expectNothingLost();
}

TEST_P(TransferSafetyTest, AnyCallMayFail) {
    const std::size_t calls = callsOfARun();
    for (const int reason : {EIO, ENOSPC, EACCES}) {
        for (std::size_t number = 1; number <= calls; ++number) {
            TransferWorld world;
            fill(world);
            FaultyFileSystem disk(real);
            disk.failCall(number, reason);
            FileAction action{};
            bool isAboveArchive = false;
            bool isOfJournal = false;
            bool isPreparing = true; // no file was examined yet
            disk.beforeEachCall([&](const DiskCall& call) {
                isPreparing = isPreparing && (call.number > number || call.path != world.items[0].sourceURL);
                if (call.number == number) {
                    action = call.action;
                    isOfJournal = call.path.bytes().starts_with(world.journalFolder().bytes());
                    isAboveArchive =
                        !isOfJournal && !call.path.bytes().starts_with(world.archived("").bytes());
                }
            });
            const OperationManifest manifest = run(world, GetParam(), disk);
            SCOPED_TRACE("call " + std::to_string(number) + " of action " +
                         std::to_string(static_cast<int>(action)));
            world.expectNoPartialFiles();
            if (manifest.items.empty()) { // the run was refused
                world.expectSourcesIntact();
                continue;
            }
            ASSERT_EQ(manifest.items.size(), 2U);
            for (const FileTransactionItem& record : manifest.items) {
                expectTellsTheTruth(world, record, GetParam());
            }
            // The user may lack access to the folders above the archive.
            const bool mayBeIgnored = (action == FileAction::flush && reason == EACCES && isAboveArchive) ||
                                      (GetParam() == OperationMode::copy && (isOfJournal || isPreparing)) ||
                                      (isOfJournal && number + 2 > calls) || // its end
                                      (action == FileAction::remove && !manifest.notices.empty());
            if (action == FileAction::read || action == FileAction::write || action == FileAction::flush ||
                action == FileAction::rename || action == FileAction::remove) {
                const std::string system = std::generic_category().message(reason);
                EXPECT_TRUE(mayBeIgnored ||
                            std::ranges::any_of(manifest.items, [&](const FileTransactionItem& record) {
                                return record.errorMessage &&
                                       record.errorMessage->find(system) != std::string::npos;
                            }));
            }
        }
    }
}

TEST_P(TransferSafetyTest, TheDiskMayFillUpAtAnyByte) {
    for (const std::int64_t room : {0, 1, 11, 12, 500'000, 1'048'576 + 12, 1'048'611}) {
        TransferWorld world;
        fill(world, twoChunkMovie);
        FaultyFileSystem disk(real);
        disk.limitSpace(room);
        const FakeClock clock;
        const OrganizationPlan plan = world.plan(GetParam());
        PreparedRun prepared = world.prepared(disk, plan);
        const OperationManifest manifest =
            FileOperationEngine(disk, clock).execute(prepared, world.items, plan, [](const auto&) {});
        const FileTransactionItem& last = manifest.items.back();
        EXPECT_EQ(last.status, TransactionStatus::failed);
        EXPECT_TRUE(last.errorMessage->ends_with("could not be written: No space left on device."));
        EXPECT_EQ(manifest.notices.empty(), manifest.items.size() == world.items.size())
            << "it ends where nothing that is left can have room";
        world.expectNoPartialFiles();
        world.expectNothingLost();
    }
}

bool isBeingRemoved(const TransferWorld& world, const FilePath& path) {
    return std::ranges::any_of(world.items, [&](const MediaItem& item) {
        return item.sourceURL == path && isThere(*item.plannedDestinationURL);
    });
}

TEST_P(TransferSafetyTest, ACancelMayComeAtAnyCall) {
    const std::size_t calls = callsOfARun(twoChunkMovie);
    for (std::size_t number = 1; number <= calls; ++number) {
        TransferWorld world;
        fill(world, twoChunkMovie);
        FaultyFileSystem disk(real);
        const FakeClock clock;
        FileOperationEngine engine(disk, clock);
        std::jthread canceller;
        disk.beforeEachCall([&](const DiskCall& call) {
            if (call.number == number) {
                canceller = std::jthread([&engine] { engine.cancel(); });
                if (!isBeingRemoved(world, call.path)) { // otherwise it waits for the end of this very call
                    canceller.join();
                }
            }
        });
        const OrganizationPlan plan = world.plan(GetParam());
        PreparedRun run = world.prepared(real, plan);
        const OperationManifest manifest = engine.execute(run, world.items, plan, [](const auto&) {});
        SCOPED_TRACE("call " + std::to_string(number));
        if (manifest.items.empty()) { // before the first file
            world.expectSourcesIntact();
            continue;
        }
        EXPECT_EQ(manifest.items.size(),
                  manifest.items.back().originalPath == world.source("a.jpg") ? 1U : 2U);
        world.expectNoPartialFiles();
        world.expectNothingLost();
        const FileTransactionItem& last = manifest.items.back();
        if (last.status == TransactionStatus::failed) {
            EXPECT_EQ(last.errorMessage, "Operation cancelled. Source file was left untouched.");
            EXPECT_TRUE(isThere(last.originalPath));
            EXPECT_FALSE(isThere(last.destinationPath));
        }
    }
}

TEST_P(TransferSafetyTest, APowerLossTakesNoContentThatWasMoved) {
    TransferWorld world;
    fill(world);
    world.add("c.jpg", "content of c", "2022/c.jpg");
    FaultyFileSystem disk(real);
    const PowerLoss power(disk);
    ASSERT_TRUE(disk.createFolders(world.archived(""))); // somebody else created it a moment ago
    const OperationManifest manifest = run(world, GetParam(), disk);
    EXPECT_EQ(power.losses(), std::vector<FilePath>{});
    EXPECT_TRUE(std::ranges::all_of(manifest.items, [&](const FileTransactionItem& record) {
        return record.status == TransactionStatus::verified && power.isDurable(record.destinationPath);
    }));
}

/// Undoes a run that was cut off, as far as its journal allows.
void takeBackTheLastRun(const TransferWorld& world) {
    PosixFileSystem real;
    const RunJournals journals(real, world.journalFolder());
    const Result<ReadJournal, std::string> read = readJournal(real, world.journal());
    if (!read) {
        return; // it was cut off before the journal was started
    }
    const Result<UndoResult, RunRefusal> undone = takeBack(real, read->manifest, journals, world.journal());
    ASSERT_TRUE(undone) << undone.error().sentence;
    EXPECT_TRUE(undone->isComplete()) << testing::PrintToString(undone->warnings);
}

/// Blocks the n-th call to a disk until it is released.
class Turnstile {
public:
    Turnstile(FaultyFileSystem& disk, std::size_t number) {
        disk.beforeEachCall([this, number](const DiskCall& call) {
            if (call.number == number) {
                arrived_.release();
                letOn_.acquire();
            }
        });
    }
    /// Must be called when the work is over, because the work may end before that call.
    void end() { arrived_.release(); }
    void await() { arrived_.acquire(); }
    void letOn() { letOn_.release(); }

private:
    std::binary_semaphore arrived_{0};
    std::binary_semaphore letOn_{0};
};

/// Two moves of different contents to one place. Each has its own archive, and one archive lies inside the
/// other, so no lock on an archive keeps them apart. The first move is blocked before one of its calls until
/// the second has reached one of its own.
class TwoMoves {
public:
    TwoMoves() {
        world.add("a/a.jpg", "content of the first", "2021/a.jpg");
        world.add("b/a.jpg", "content of the second", "2021/a.jpg");
    }

    void run(std::size_t callOfFirst, std::size_t callOfSecond, bool hasLocks) {
        std::array<FaultyFileSystem, 2> disks{FaultyFileSystem(real_), FaultyFileSystem(real_)};
        std::array<Turnstile, 2> turnstiles{Turnstile(disks[0], callOfFirst),
                                            Turnstile(disks[1], callOfSecond)};
        std::array<std::jthread, 2> threads;
        for (const std::size_t one : {0U, 1U}) {
            OrganizationPlan plan = world.plan(OperationMode::move);
            plan.destinationURL = world.archived(one == 0 ? "" : "2021");
            PreparedRun prepared = world.prepared(real_, plan);
            if (!hasLocks) {
                disks[one].failAction(FileAction::lock, ENOLCK);
            }
            threads[one] = std::jthread([&, one, plan, prepared = std::move(prepared)]() mutable {
                const FakeClock clock;
                FileOperationEngine(disks[one], clock)
                    .execute(prepared, std::span(world.items).subspan(one, 1), plan, [](const auto&) {});
                turnstiles[one].end();
            });
            turnstiles[one].await();
        }
        callsMade = disks[0].callCount();
        turnstiles[0].letOn();
        threads[0].join();
        turnstiles[1].letOn();
        threads[1].join();
    }

    /// Each content exists somewhere, unchanged, and no final name has other content.
    void expectNothingLost() const {
        std::set<std::string> whole;
        for (const auto& [name, content] : filesBelow(world.source("").parent())) {
            const bool isOneOfThem =
                content == world.content("a/a.jpg") || content == world.content("b/a.jpg");
            EXPECT_TRUE(isOneOfThem || name.ends_with(".partial") || name.ends_with(".journal")) << name;
            if (isOneOfThem && !name.ends_with(".partial")) {
                whole.insert(content);
            }
        }
        EXPECT_EQ(whole.size(), 2U);
    }

    TransferWorld world;
    std::size_t callsMade = 0;

private:
    PosixFileSystem real_;
};

TEST(TransferInterleavingTest, TwoRunsAtOnePlaceLoseNothing) {
    constexpr std::size_t never = 1'000'000;
    TwoMoves undisturbed;
    undisturbed.run(never, never, true);
    const std::size_t calls = undisturbed.callsMade;
    for (const bool hasLocks : {true, false}) {
        for (std::size_t first = 1; first <= calls; ++first) {
            for (std::size_t second = 1; second <= calls; ++second) {
                SCOPED_TRACE("held up at calls " + std::to_string(first) + " and " + std::to_string(second));
                TwoMoves moves;
                moves.run(first, second, hasLocks);
                moves.expectNothingLost();
                if (testing::Test::HasFailure()) {
                    return;
                }
            }
        }
    }
}

TEST(TransferKillTest, AMoveMayBeKilledAtAnyCall) {
    PosixFileSystem real;
    bool isKilled = true;
    for (std::size_t number = 1; isKilled; ++number) {
        TransferWorld world;
        fill(world);
        isKilled = runInDoomedProcess([&] {
            FaultyFileSystem disk(real);
            disk.beforeEachCall([&](const DiskCall& call) {
                if (call.number == number) {
                    raise(SIGKILL);
                }
            });
            run(world, OperationMode::move, disk);
        });
        SCOPED_TRACE("call " + std::to_string(number));
        world.expectNothingLost();
        takeBackTheLastRun(world);
        world.expectSourcesIntact();
        run(world, OperationMode::move, real);
        world.expectNothingLost();
        EXPECT_EQ(world.archiveFiles(), (std::vector<std::string>{"2021/2021-03 March/a.jpg", "2022/b.mov"}));
    }
}

TEST(TransferKillTest, AMoveKilledAHundredTimesLosesNothing) {
    std::minstd_rand random(20211); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same moments every time
    TransferWorld world;
    for (int number = 0; number < 200; ++number) {
        const std::string name = std::to_string(number) + ".jpg";
        world.add(name, "content of " + name + std::string(random() % 50'000, '.'),
                  std::to_string(2000 + number % 7) + "/" + name);
    }
    PosixFileSystem real;
    for (int killed = 0; killed < 100; ++killed) {
        runInDoomedProcess([&] { run(world, OperationMode::move, real); },
                           std::chrono::microseconds(random() % 20'000));
        world.expectNothingLost();
    }
    run(world, OperationMode::move, real);
    world.expectNothingLost();
    world.expectNoPartialFiles();
    for (const MediaItem& item : world.items) {
        EXPECT_TRUE(isThere(*item.plannedDestinationURL));
    }
}

} // namespace
} // namespace lumeo
