#include "PowerLoss.h"
#include "TransferWorld.h"
#include "platform/PosixFileSystem.h"
#include "support/FakeClock.h"
#include "support/FaultyFileSystem.h"
#include "transfer/FileOperationEngine.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <thread>

#include <gtest/gtest.h>

namespace lumeo {
namespace {

constexpr std::size_t smallMovie = 1'000;
constexpr std::size_t twoChunkMovie = 1'048'600;

/// Two files and what can make their ways differ: a known digest, new folders.
void fill(TransferWorld& world, std::size_t movieSize = smallMovie) {
    world.add("a.jpg", "content of a", "2021/2021-03 March/a.jpg").sha256Hash = digestOf("content of a");
    world.add("b.mov", std::string(movieSize, 'b'), "2022/b.mov");
}

OperationManifest run(const TransferWorld& world, OperationMode mode, FileSystem& fileSystem) {
    const FakeClock clock;
    FileOperationEngine engine(fileSystem, clock);
    return engine.execute(world.items, world.plan(mode), world.sourceRoots(), [](const auto&) {});
}

class TransferSafetyTest : public testing::TestWithParam<OperationMode> {
protected:
    /// How many calls a run makes that nothing happens to.
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
        EXPECT_EQ(isThere(record.originalPath), mode == OperationMode::copy);
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
            disk.beforeEachCall([&](const DiskCall& call) {
                if (call.number == number) {
                    action = call.action;
                    isAboveArchive = !call.path.bytes().starts_with(world.archived("").bytes());
                }
            });
            const OperationManifest manifest = run(world, GetParam(), disk);
            SCOPED_TRACE("call " + std::to_string(number) + " of action " +
                         std::to_string(static_cast<int>(action)));
            ASSERT_EQ(manifest.items.size(), 2U);
            world.expectNoPartialFiles();
            for (const FileTransactionItem& record : manifest.items) {
                expectTellsTheTruth(world, record, GetParam());
            }
            // The folders above need not be open to whoever fills the archive.
            const bool mayBeIgnored = action == FileAction::flush && reason == EACCES && isAboveArchive;
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
        const OperationManifest manifest = run(world, GetParam(), disk);
        const FileTransactionItem& last = manifest.items.back();
        EXPECT_EQ(last.status, TransactionStatus::failed);
        EXPECT_EQ(last.errorMessage, "“b.mov.partial” could not be written: No space left on device.");
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
                if (!isBeingRemoved(world, call.path)) { // or else it waits for the end of this very call
                    canceller.join();
                }
            }
        });
        const OperationManifest manifest =
            engine.execute(world.items, world.plan(GetParam()), world.sourceRoots(), [](const auto&) {});
        SCOPED_TRACE("call " + std::to_string(number));
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
    ASSERT_TRUE(disk.createFolders(world.archived(""))); // a moment ago, by somebody else
    const OperationManifest manifest = run(world, GetParam(), disk);
    EXPECT_EQ(power.losses(), std::vector<FilePath>{});
    EXPECT_TRUE(std::ranges::all_of(manifest.items, [&](const FileTransactionItem& record) {
        return record.status == TransactionStatus::verified && power.isDurable(record.destinationPath);
    }));
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
