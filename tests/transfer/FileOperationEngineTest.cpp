#include "transfer/FileOperationEngine.h"

#include "TransferWorld.h"
#include "platform/PosixFileSystem.h"
#include "support/FakeClock.h"
#include "support/FaultyFileSystem.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <thread>

#include <gtest/gtest.h>

namespace lumeo {
namespace {

using namespace std::chrono_literals;

class FileOperationEngineTest : public testing::Test {
protected:
    OperationManifest run(OrganizationPlan plan, std::stop_token stop = {}) {
        PreparedRun run = world.prepared(disk, plan);
        return engine.execute(run, world.items, plan, collect(), stop);
    }

    FileOperationEngine::ProgressCallback collect() {
        return [this](const OperationProgress& progress) { published.push_back(progress); };
    }

    void addFiles(int count) {
        for (int number = 0; number < count; ++number) {
            const std::string name = std::to_string(number) + ".jpg";
            world.add(name, "content of " + name, name);
        }
    }

    TransferWorld world;
    PosixFileSystem real;
    FaultyFileSystem disk{real};
    FakeClock clock;
    FileOperationEngine engine{disk, clock};
    std::vector<OperationProgress> published;
};

TEST_F(FileOperationEngineTest, CountsEveryOutcomeOnce) {
    addFiles(5);
    std::filesystem::remove(world.items[0].sourceURL.bytes());
    world.items[1].plannedDestinationURL.reset();
    std::filesystem::create_directory(world.archived("").bytes());
    std::filesystem::copy(world.items[2].sourceURL.bytes(), world.items[2].plannedDestinationURL->bytes());
    const OperationManifest manifest = run(world.plan(OperationMode::copy));

    ASSERT_EQ(manifest.items.size(), 4U);
    EXPECT_EQ(manifest.items[0].status, TransactionStatus::failed);
    EXPECT_EQ(manifest.items[1].status, TransactionStatus::skipped);
    EXPECT_EQ(manifest.items[2].status, TransactionStatus::verified);
    EXPECT_EQ(manifest.items[3].originalPath, world.source("4.jpg"));
    const OperationProgress& last = published.back();
    EXPECT_EQ(last.totalFiles, 5);
    EXPECT_EQ(last.processedCount, 5);
    EXPECT_EQ(last.errorsCount, 2);
    EXPECT_EQ(last.skippedCount, 1);
    EXPECT_EQ(last.verifiedCount, 2);
    EXPECT_EQ(last.transferredBytes, 2 * world.items[4].fileSize);
    EXPECT_EQ(last.totalBytes, 5 * world.items[4].fileSize);
    EXPECT_EQ(last.currentItemName, "4.jpg");
    EXPECT_EQ(manifest.totalTransferredBytes, last.transferredBytes);
}

TEST_F(FileOperationEngineTest, TakesTheFirstOfEachDuplicateGroupUnlessAllAreWanted) {
    addFiles(4);
    const Uuid group = Uuid::random();
    for (const std::size_t member : {0U, 2U, 3U}) {
        world.items[member].exactDuplicateGroupID = group;
    }
    world.items[3].plannedDestinationURL.reset();
    OrganizationPlan plan = world.plan(OperationMode::copy);
    const OperationManifest skipping = run(plan);
    ASSERT_EQ(skipping.items.size(), 4U);
    for (const std::size_t later : {2U, 3U}) {
        EXPECT_EQ(skipping.items[later].status, TransactionStatus::skipped);
        EXPECT_EQ(skipping.items[later].verificationResult, "Skipped (Exact Duplicate)");
        EXPECT_EQ(skipping.items[later].sourceHash, std::nullopt);
    }
    EXPECT_EQ(skipping.items[2].destinationPath, world.archived("2.jpg"));
    EXPECT_TRUE(skipping.items[3].destinationPath.empty());
    EXPECT_EQ(world.archiveFiles(), (std::vector<std::string>{"0.jpg", "1.jpg"}));

    plan.duplicatePolicy = DuplicatePolicy::keepAll;
    EXPECT_EQ(run(plan).items.size(), 3U); // the item without a destination has no record
    EXPECT_EQ(world.archiveFiles(), (std::vector<std::string>{"0.jpg", "1.jpg", "2.jpg"}));
}

TEST_F(FileOperationEngineTest, PublishesEveryTenthFileOrAfterAWhileWithRatesAndTheTimeLeft) {
    constexpr std::int64_t megabyte = 1'000'000;
    addFiles(25);
    for (MediaItem& item : world.items) {
        item.fileSize = 50 * megabyte;
    }
    disk.beforeEachCall([&](const DiskCall& call) {
        if (call.operation == "renameWithoutReplacing" && published.size() < 2) {
            clock.advance(500ms);
        }
    });
    engine.cancel(); // when no run is active
    run(world.plan(OperationMode::copy));
    std::vector<std::int64_t> counts;
    for (const OperationProgress& progress : published) {
        counts.push_back(progress.processedCount);
    }
    EXPECT_EQ(counts, (std::vector<std::int64_t>{1, 2, 10, 20, 25}));
    EXPECT_EQ(published[0].currentThroughputBytesPerSec, 100.0 * megabyte);
    EXPECT_EQ(published[0].averageThroughputBytesPerSec, 0); // not before the first half second is over
    EXPECT_EQ(published[1].averageThroughputBytesPerSec, 100.0 * megabyte);
    EXPECT_EQ(published[1].estimatedSecondsRemaining, 11.5);
}

TEST_F(FileOperationEngineTest, WithdrawsCopiesWhoseNamesTheDeviceRefused) {
    world.add("a.jpg", "a", "2021/a.jpg");
    world.add("b.jpg", "b", "2022/b.jpg");
    world.add("c.jpg", "c", "2022-05/c.jpg");
    disk.failWhen(
        [&](const DiskCall& call) {
            return call.operation == "flushFolder" && call.path == world.archived("2022");
        },
        EIO);
    const OperationManifest manifest = run(world.plan(OperationMode::copy));
    EXPECT_EQ(manifest.items[0].status, TransactionStatus::verified);
    EXPECT_EQ(manifest.items[1].status, TransactionStatus::failed);
    EXPECT_EQ(manifest.items[1].errorMessage,
              "“2022” could not be written to the device: Input/output error.");
    EXPECT_EQ(manifest.items[2].status, TransactionStatus::verified);
    EXPECT_EQ(manifest.totalTransferredBytes, 2);
    EXPECT_EQ(published.back().verifiedCount, 2);
    EXPECT_EQ(published.back().errorsCount, 1);
    world.expectNothingLost();
}

TEST_F(FileOperationEngineTest, PausesBetweenFilesUntilResumedOrCancelled) {
    for (const bool isResumed : {true, false}) {
        world.items.clear();
        addFiles(3);
        std::filesystem::remove_all(world.archived("").bytes());
        std::atomic_int publications = 0;
        disk.beforeEachCall([&](const DiskCall& call) {
            if (call.operation == "renameWithoutReplacing" && publications == 0) {
                engine.pause();
            }
        });
        std::vector<OperationProgress> progress;
        OperationManifest manifest;
        std::jthread worker([&] {
            const OrganizationPlan plan = world.plan(OperationMode::copy);
            PreparedRun run = world.prepared(disk, plan);
            manifest = engine.execute(run, world.items, plan, [&](const auto& now) {
                progress.push_back(now);
                ++publications;
            });
        });
        while (publications == 0) {
            std::this_thread::yield();
        }
        std::this_thread::sleep_for(20ms);
        EXPECT_EQ(publications, 1);
        EXPECT_EQ(world.archiveFiles(), std::vector<std::string>{"0.jpg"});
        if (isResumed) {
            engine.resume();
        } else {
            engine.cancel();
        }
        worker.join();
        EXPECT_TRUE(progress.front().isPaused);
        EXPECT_FALSE(progress.back().isPaused);
        EXPECT_EQ(manifest.items.size(), isResumed ? 3U : 1U);
        EXPECT_EQ(manifest.isCancelled, !isResumed);
        EXPECT_EQ(progress.back().isCancelled, !isResumed);
        EXPECT_EQ(progress.back().isCompleted, isResumed);
    }
}

TEST_F(FileOperationEngineTest, AStopRequestEndsTheRunBetweenFilesAndWhilePaused) {
    addFiles(3);
    std::stop_source stop;
    disk.beforeEachCall([&](const DiskCall& call) {
        if (call.operation == "renameWithoutReplacing") {
            engine.pause();
            stop.request_stop();
        }
    });
    const OperationManifest manifest = run(world.plan(OperationMode::copy), stop.get_token());
    ASSERT_EQ(manifest.items.size(), 1U);
    EXPECT_EQ(manifest.items[0].status, TransactionStatus::verified);
    EXPECT_EQ(manifest.isCancelled, true);
    ASSERT_EQ(published.size(), 1U);
    EXPECT_TRUE(published[0].isCancelled);

    const OperationManifest empty = run(world.plan(OperationMode::move), stop.get_token());
    EXPECT_EQ(empty.items.size(), 0U);
    EXPECT_EQ(empty.operationType, "move");
    EXPECT_EQ(empty.sourceRoots, world.sourceRoots());
    EXPECT_EQ(empty.destinationRoot, world.archived(""));
}

TEST_F(FileOperationEngineTest, AnyThreadMaySteerAtAnyMoment) {
    addFiles(30);
    for (int round = 0; round < 60; ++round) {
        std::atomic_bool isOver = false;
        std::jthread pausing([&] {
            while (!isOver) {
                engine.pause();
                engine.resume();
            }
        });
        std::jthread cancelling([&, round] {
            std::this_thread::sleep_for(std::chrono::microseconds(round * 100));
            if (round % 3 != 0) {
                engine.cancel();
            }
        });
        const OperationManifest manifest =
            run(world.plan(round % 2 == 0 ? OperationMode::copy : OperationMode::move));
        isOver = true;
        EXPECT_EQ(manifest.isCancelled, published.back().isCancelled);
        if (!*manifest.isCancelled) {
            EXPECT_EQ(manifest.items.size(), world.items.size());
        }
    }
    world.expectNothingLost();
    world.expectNoPartialFiles();
}

} // namespace
} // namespace lumeo
