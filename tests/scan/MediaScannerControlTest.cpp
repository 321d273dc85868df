#include "platform/PosixFileSystem.h"
#include "scan/MediaScanner.h"
#include "support/FakeClock.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <latch>
#include <optional>
#include <random>
#include <thread>

namespace lumeo {
namespace {

/// Scans files of unsupported types in a thread of its own. The scanner publishes its progress after each
/// such file.
class MediaScannerControlTest : public testing::Test {
protected:
    static constexpr int fileCount = 12;
    using OnFile = std::function<void(std::int64_t filesSoFar)>;

    MediaScannerControlTest() {
        for (int i = 0; i < fileCount; ++i) {
            folder_.write("paper " + std::to_string(i) + ".pdf", "x");
        }
    }

    /// Returns the final counters.
    ScanProgress scan(const OnFile& onFile = {}) {
        ScanProgress last;
        scanner_.scan(
            std::vector{folder_.path()},
            [&](const ScanProgress& progress) {
                last = progress;
                if (onFile && !progress.isCompleted && !progress.isCancelled) {
                    onFile(progress.totalScannedCount);
                }
            },
            stop_.get_token());
        return last;
    }

    /// Starts a scan that pauses itself after three files. Returns when it has paused.
    std::future<ScanProgress> scanPausedAfterThree() {
        return std::async(std::launch::async, [this] {
            return scan([this](std::int64_t files) {
                if (files == 3) {
                    scanner_.pause();
                    hasPaused_->count_down();
                } else if (files > 3) {
                    EXPECT_TRUE(mayGoOn_) << "a paused scan takes no further file";
                }
            });
        });
    }

    TempFolder folder_;
    FakeClock clock_;
    PosixFileSystem fileSystem_;
    SystemVolumes volumes_;
    MediaScanner scanner_{fileSystem_, volumes_, clock_};
    std::stop_source stop_;
    std::optional<std::latch> hasPaused_{std::in_place, 1};
    std::atomic<bool> mayGoOn_ = false;
};

TEST_F(MediaScannerControlTest, KeepsItsPlaceWhilePaused) {
    auto scanning = scanPausedAfterThree();
    hasPaused_->wait();
    std::this_thread::sleep_for(std::chrono::milliseconds(5)); // gives a fault time to show
    mayGoOn_ = true;
    scanner_.resume();
    const ScanProgress end = scanning.get();
    EXPECT_TRUE(end.isCompleted);
    EXPECT_EQ(end.totalScannedCount, fileCount);
}

TEST_F(MediaScannerControlTest, WakesToACancelOrAStopWhilePaused) {
    for (const bool isStop : {false, true}) {
        hasPaused_.emplace(1);
        auto scanning = scanPausedAfterThree();
        hasPaused_->wait();
        isStop ? static_cast<void>(stop_.request_stop()) : scanner_.cancel();
        const ScanProgress end = scanning.get();
        EXPECT_TRUE(end.isCancelled);
        EXPECT_FALSE(end.isCompleted);
        EXPECT_EQ(end.totalScannedCount, 3);
    }
}

TEST_F(MediaScannerControlTest, ForgetsCallsFromBeforeButNotAStopRequestAndStopsAtTheNextEntry) {
    scanner_.cancel();
    scanner_.pause();
    EXPECT_EQ(scan().totalScannedCount, fileCount);
    const ScanProgress cancelled = scan([this](std::int64_t files) {
        if (files == 5) {
            scanner_.cancel();
        }
    });
    EXPECT_TRUE(cancelled.isCancelled);
    EXPECT_EQ(cancelled.totalScannedCount, 5);
    stop_.request_stop();
    const ScanProgress stopped = scan();
    EXPECT_TRUE(stopped.isCancelled);
    EXPECT_EQ(stopped.totalScannedCount, 0);
}

TEST_F(MediaScannerControlTest, NeverMissesAWakeUp) {
    constexpr int rounds = 1000;
    std::mt19937 random(20210314); // NOLINT(cert-msc51-cpp): the same rounds every time
    for (int round = 0; round < rounds; ++round) {
        const auto seed = random();
        std::jthread controller([this, seed] {
            std::mt19937 moments(seed); // NOLINT(cert-msc51-cpp)
            for (int i = 0; i < 20; ++i) {
                const auto what = moments() % 32;
                if (what < 12) {
                    scanner_.pause();
                } else if (what < 24) {
                    scanner_.resume();
                } else if (what == 24) {
                    scanner_.cancel();
                } else {
                    std::this_thread::yield();
                }
            }
            scanner_.resume();
        });
        const ScanProgress end = scan();
        EXPECT_NE(end.isCancelled, end.isCompleted);
        EXPECT_TRUE(end.isCancelled || end.totalScannedCount == fileCount);
    }
}

} // namespace
} // namespace lumeo
