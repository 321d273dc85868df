#include "transfer/UndoEngine.h"

#include "PowerLoss.h"
#include "TransferWorld.h"
#include "platform/PosixFileSystem.h"
#include "support/FakeClock.h"
#include "support/FaultyFileSystem.h"
#include "transfer/FileOperationEngine.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>

#include <gtest/gtest.h>
#include <unistd.h>

namespace lumeo {
namespace {

namespace fs = std::filesystem;

/// Simulates two devices: only the renaming of a finished temporary file stays on one device.
void spanTwoDevices(FaultyFileSystem& disk) {
    disk.failWhen(
        [](const DiskCall& call) {
            return call.operation == "renameWithoutReplacing" && call.path.extension() != "partial";
        },
        EXDEV);
}

/// A finished run over three files, to be undone.
class FinishedRun : public TransferWorld {
public:
    explicit FinishedRun(OperationMode mode) {
        add("a.jpg", "content of a", "2021/a.jpg");
        add("folder/b.jpg", "content of b", "2021/b.jpg");
        add("c.mov", std::string(1'000, 'c'), "2022/c.mov");
        PosixFileSystem real;
        const FakeClock clock;
        PreparedRun run = prepared(real, plan(mode));
        manifest = FileOperationEngine(real, clock).execute(run, items, plan(mode), [](const auto&) {});
    }

    /// Checks that every file is back under its original name and nowhere else.
    void expectRestored() const {
        expectSourcesIntact();
        EXPECT_EQ(archiveFiles(), std::vector<std::string>{});
        for (const auto& entry : fs::recursive_directory_iterator(source("").bytes())) {
            EXPECT_NE(entry.path().extension(), ".partial");
        }
    }

    OperationManifest manifest;
};

class UndoEngineTest : public testing::Test {
protected:
    static std::string textOf(const FilePath& path) { return path.bytes(); }

    PosixFileSystem real;
    FaultyFileSystem disk{real};
    UndoEngine undo{disk};
};

TEST_F(UndoEngineTest, StoppedLeavesTheRestUnseenAndSaysSo) {
    FinishedRun run(OperationMode::copy);
    std::stop_source stop;
    int calls = 0;
    const UndoResult result = undo.rollback(
        run.manifest,
        [&](const UndoProgress& progress) {
            if (progress.processedCount == 1) {
                stop.request_stop();
                disk.beforeEachCall([&calls](const DiskCall&) { ++calls; });
            }
        },
        stop.get_token());
    EXPECT_EQ(result.restoredCount, 1);
    EXPECT_EQ(result.failedCount, 2);
    EXPECT_EQ(result.warnings.back(),
              "Skipped rolling back " + textOf(run.archived("2022/c.mov")) + ": The undo was stopped.");
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(run.archiveFiles().size(), 2U);
}

TEST_F(UndoEngineTest, TakesBackWhatIsProvenAndTellsTheRest) {
    for (const OperationMode mode : {OperationMode::copy, OperationMode::move}) {
        FinishedRun run(mode);
        fs::remove(run.archived("2021/a.jpg").bytes());
        std::ofstream(run.archived("2021/b.jpg").bytes()) << "content of B";
        const UndoResult result = undo.rollback(run.manifest);
        EXPECT_EQ(result.restoredCount, 1);
        EXPECT_EQ(result.skippedCount, 1);
        EXPECT_EQ(result.failedCount, 1);
        EXPECT_EQ(result.warnings,
                  (std::vector{"Destination file was not found: " + textOf(run.archived("2021/a.jpg")),
                               "Skipped rolling back " + textOf(run.archived("2021/b.jpg")) +
                                   ": File was modified after transfer."}));
        EXPECT_EQ(run.archiveFiles(), std::vector<std::string>{"2021/b.jpg"});
        EXPECT_EQ(contentOf(run.source("c.mov")), run.content("c.mov"));
    }
}

TEST_F(UndoEngineTest, RestoresAWholeMoveAndFindsNothingTheSecondTime) {
    FinishedRun run(OperationMode::move);
    run.manifest.operationType = "Move";
    run.manifest.items.push_back(run.manifest.items[0]);
    run.manifest.items.back().status = TransactionStatus::skipped;
    fs::remove_all(run.source("folder").bytes());
    std::vector<UndoProgress> told;
    EXPECT_EQ(undo.rollback(run.manifest, [&](const auto& progress) { told.push_back(progress); }),
              (UndoResult{3, 0, 0, {}}));
    EXPECT_EQ(told,
              (std::vector<UndoProgress>{{3, 0, "a.jpg"}, {3, 1, "b.jpg"}, {3, 2, "c.mov"}, {3, 3, ""}}));
    run.expectRestored();
    const UndoResult again = undo.rollback(run.manifest);
    EXPECT_EQ(again.skippedCount, 3);
    EXPECT_EQ(again.warnings.size(), 3U);
    run.expectRestored();
}

TEST_F(UndoEngineTest, OfACopyKeepsWhateverMayBeTheLastOfItsContent) {
    struct Case {
        std::string what;
        std::function<void(const FinishedRun&, const FilePath& original, const FilePath& archived)> change;
        bool isKept;
        bool isForeseen; ///< without reading a file
    };
    const auto touch = [](const FilePath& path) {
        fs::last_write_time(path.bytes(), fs::file_time_type::clock::now() + std::chrono::hours(1));
    };
    const std::vector<Case> cases{
        {"as it was", [](auto&, auto&, auto&) {}, false, false},
        {"touched", [&](auto&, auto& original, auto&) { touch(original); }, false, false},
        {"deleted", [](auto&, auto& original, auto&) { fs::remove(original.bytes()); }, true, true},
        {"shortened", [](auto&, auto& original, auto&) { fs::resize_file(original.bytes(), 3); }, true, true},
        {"overwritten",
         [&](auto&, auto& original, auto&) {
             std::ofstream(original.bytes()) << "CONTENT OF A";
             touch(original);
         },
         true, false},
        {"a link",
         [](auto&, auto& original, auto& archived) {
             fs::remove(original.bytes());
             fs::create_symlink(archived.bytes(), original.bytes());
         },
         true, true},
        {"a second name",
         [](auto&, auto& original, auto& archived) {
             fs::remove(original.bytes());
             fs::create_hard_link(archived.bytes(), original.bytes());
         },
         true, true},
        {"a folder",
         [](auto&, auto& original, auto&) {
             fs::remove(original.bytes());
             fs::create_directory(original.bytes());
         },
         true, true},
        {"the archive leads to the sources",
         [](auto&, auto& original, auto& archived) {
             fs::remove_all(archived.parent().bytes());
             fs::create_directory_symlink(original.parent().bytes(), archived.parent().bytes());
         },
         true, true},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.what);
        const FinishedRun run(OperationMode::copy);
        const FilePath original = run.source("a.jpg");
        const FilePath archived = run.archived("2021/a.jpg");
        one.change(run, original, archived);
        OperationManifest manifest = run.manifest;
        manifest.items.resize(1);
        manifest.timestamp += std::chrono::seconds(10); // the files were made at this moment
        EXPECT_EQ(undo.forecast(manifest), (UndoForecast{1, one.isForeseen ? 1 : 0}));
        const UndoResult result = undo.rollback(manifest);
        EXPECT_EQ(result.failedCount, one.isKept ? 1 : 0);
        EXPECT_EQ(isThere(archived), one.isKept);
        if (one.what == "the archive leads to the sources") {
            EXPECT_EQ(result.warnings, std::vector{"Skipped rolling back " + textOf(archived) +
                                                   ": Its folder leads out of the archive."});
            run.expectSourcesIntact();
        } else if (one.isKept) {
            EXPECT_EQ(result.warnings,
                      std::vector{"Left in place: its original is no longer there: " + textOf(archived)});
        }
    }
}

TEST_F(UndoEngineTest, KeepsTheCopyWhoseOriginalGoesWhileItIsRead) {
    FinishedRun run(OperationMode::copy);
    disk.beforeEachCall([&](const DiskCall& call) {
        if (call.operation == "read" && call.path == run.archived("2022/c.mov")) {
            fs::remove(run.source("c.mov").bytes());
        }
    });
    EXPECT_EQ(undo.rollback(run.manifest).failedCount, 1);
    EXPECT_TRUE(isThere(run.archived("2022/c.mov")));
}

TEST_F(UndoEngineTest, MovesNothingToWhereItsSourceIsNot) {
    FinishedRun run(OperationMode::move);
    const FilePath source = run.source("");
    // The folder of one file leads out of its source.
    fs::remove_all(source.appending("folder").bytes());
    fs::create_directory_symlink(run.archived("").bytes(), source.appending("folder").bytes());
    EXPECT_EQ(undo.rollback(run.manifest).warnings,
              std::vector{"Skipped rolling back " + textOf(run.archived("2021/b.jpg")) +
                          ": Its original folder leads out of its source."});
    // The drive of the source is gone. Its mount point may still be there.
    for (const bool isMountPointLeft : {false, true}) {
        FinishedRun moved(OperationMode::move);
        const FilePath root = moved.source("");
        fs::rename(root.bytes(), root.bytes() + ".aside");
        if (isMountPointLeft) {
            // An empty mount point is on the system's device. A test can only simulate that.
            fs::create_directory_symlink("/", root.bytes());
            moved.manifest.foreignRoots = {root};
        }
        const UndoResult result = undo.rollback(moved.manifest);
        EXPECT_EQ(result.failedCount, 3);
        EXPECT_EQ(result.warnings.front(), "Skipped rolling back " + textOf(moved.archived("2021/a.jpg")) +
                                               ": Its source is not there: " + textOf(root) +
                                               " (is its drive connected?)");
        EXPECT_EQ(moved.archiveFiles().size(), 3U);
    }
}

TEST_F(UndoEngineTest, IsRefusedWithoutItsArchiveOrWhileAnotherWorksThere) {
    FinishedRun run(OperationMode::move);
    const RunJournals journals(disk, run.journalFolder());
    {
        const auto held = disk.lock(run.archived(""));
        const auto refused = takeBack(disk, run.manifest, journals, run.journal());
        ASSERT_FALSE(refused);
        EXPECT_EQ(refused.error().reason, RunRefusal::Reason::archiveInUse);
        EXPECT_NE(refused.error().sentence.find("(process " + std::to_string(getpid()) + ")"),
                  std::string::npos)
            << refused.error().sentence;
    }
    fs::rename(run.archived("").bytes(), run.archived("").bytes() + ".aside");
    const auto refused = takeBack(disk, run.manifest, journals, run.journal());
    ASSERT_FALSE(refused);
    EXPECT_NE(refused.error().sentence.find("is its drive connected?"), std::string::npos);
    fs::rename(run.archived("").bytes() + ".aside", run.archived("").bytes());
    EXPECT_EQ(takeBack(disk, run.manifest, journals, run.journal())->restoredCount, 3);
    EXPECT_EQ(journals.list().at(0).state, RunState::undone);
}

TEST_F(UndoEngineTest, TouchesNothingWithoutProof) {
    FinishedRun run(OperationMode::copy);
    run.manifest.items[0].destinationHash.reset();
    // The link's name was not written by the run, whatever it leads to.
    fs::rename(run.archived("2021/b.jpg").bytes(), run.archived("elsewhere").bytes());
    fs::create_symlink(run.archived("elsewhere").bytes(), run.archived("2021/b.jpg").bytes());
    disk.failAction(FileAction::remove, EACCES);
    const UndoResult result = undo.rollback(run.manifest);
    EXPECT_EQ(result.failedCount, 3);
    const std::string skipped = "Skipped rolling back ";
    EXPECT_EQ(
        result.warnings,
        (std::vector{skipped + textOf(run.archived("2021/a.jpg")) + ": No recorded hash.",
                     skipped + textOf(run.archived("2021/b.jpg")) + ": File was modified after transfer.",
                     "Could not delete " + textOf(run.archived("2022/c.mov")) +
                         ": “c.mov” could not be removed: Permission denied."}));
    for (const FileTransactionItem& record : run.manifest.items) {
        EXPECT_TRUE(isThere(record.destinationPath));
    }
}

TEST_F(UndoEngineTest, AFileEditedDuringOrAfterItsProofStays) {
    for (const int look : {3, 4}) { // the last check of the proof, and the check of the removal
        FinishedRun run(OperationMode::copy);
        // The edit must not get the same time stamp as the run.
        fs::last_write_time(run.archived("2021/a.jpg").bytes(),
                            fs::file_time_type::clock::now() - std::chrono::hours(1));
        FaultyFileSystem device(real);
        int looks = 0;
        device.beforeEachCall([&](const DiskCall& call) {
            if (call.operation == "status" && call.path == run.archived("2021/a.jpg") && ++looks == look) {
                std::ofstream(call.path.bytes()) << "EDITED OF A!";
            }
        });
        const UndoResult result = UndoEngine(device).rollback(run.manifest);
        EXPECT_EQ(result.restoredCount, 2);
        EXPECT_EQ(result.warnings, std::vector{"Skipped rolling back " + textOf(run.archived("2021/a.jpg")) +
                                               ": File was modified after transfer."});
    }
}

TEST_F(UndoEngineTest, NeverOverwritesAnOriginal) {
    for (const bool isOnOneDevice : {true, false}) {
        FinishedRun run(OperationMode::move);
        FaultyFileSystem device(real);
        if (!isOnOneDevice) {
            spanTwoDevices(device);
        }
        std::ofstream(run.source("a.jpg").bytes()) << "somebody's";
        device.beforeEachCall([&](const DiskCall& call) {
            if (call.operation == "renameWithoutReplacing" && call.newPath == run.source("c.mov")) {
                std::ofstream(call.newPath.bytes()) << "just now";
            }
        });
        const UndoResult result = UndoEngine(device).rollback(run.manifest);
        const std::string exists = "Original path already exists, will not overwrite: ";
        EXPECT_EQ(result.warnings,
                  (std::vector{exists + textOf(run.source("a.jpg")), exists + textOf(run.source("c.mov"))}));
        EXPECT_EQ(contentOf(run.source("a.jpg")), "somebody's");
        EXPECT_EQ(run.archiveFiles(), (std::vector<std::string>{"2021/a.jpg", "2022/c.mov"}));
    }
}

TEST_F(UndoEngineTest, FinishesAMoveBackThatWasCutShort) {
    FinishedRun run(OperationMode::move);
    const auto [a, b, c] = std::tuple(run.manifest.items[0], run.manifest.items[1], run.manifest.items[2]);
    fs::copy_file(a.destinationPath.bytes(), a.originalPath.bytes());
    fs::create_hard_link(b.destinationPath.bytes(), b.originalPath.bytes());
    // Both paths lead to one name, so removing it would remove the content.
    fs::create_symlink(c.destinationPath.parent().bytes(), run.source("linked").bytes());
    run.manifest.items[2].originalPath = run.source("linked/c.mov");
    run.manifest.sourceRoots = {run.source("").parent()};
    const UndoResult result = undo.rollback(run.manifest);
    EXPECT_EQ(result.restoredCount, 2);
    EXPECT_EQ(result.warnings, std::vector{"Original path already exists, will not overwrite: " +
                                           textOf(run.source("linked/c.mov"))});
    EXPECT_EQ(run.archiveFiles(), std::vector<std::string>{"2022/c.mov"});
    EXPECT_EQ(contentOf(a.originalPath), "content of a");
    EXPECT_EQ(contentOf(b.originalPath), "content of b");
}

TEST_F(UndoEngineTest, RemovesNothingBeforeTheOriginalIsDurableAndReadBack) {
    FinishedRun run(OperationMode::move);
    const PowerLoss power(disk);
    FaultyFileSystem device(static_cast<FileSystem&>(disk)); // between the undo and the watcher
    spanTwoDevices(device);
    device.flipBitWhenReading([](const FilePath& path) { return path.lastComponent() == "b.jpg.partial"; });
    const UndoResult result = UndoEngine(device).rollback(run.manifest);
    EXPECT_EQ(result.restoredCount, 2);
    EXPECT_EQ(result.warnings,
              std::vector{"Could not restore " + textOf(run.archived("2021/b.jpg")) +
                          " to original location: File verification failed: SHA-256 checksum mismatch."});
    EXPECT_EQ(power.losses(), std::vector{run.source("folder/b.jpg.partial")}); // without value
    EXPECT_EQ(run.archiveFiles(), std::vector<std::string>{"2021/b.jpg"});
}

TEST_F(UndoEngineTest, TellsOfAFolderThatTheDeviceRefused) {
    FinishedRun run(OperationMode::move);
    disk.failWhen(
        [&](const DiskCall& call) {
            return call.operation == "flushFolder" && call.path == run.source("folder");
        },
        EIO);
    const UndoResult result = undo.rollback(run.manifest);
    EXPECT_EQ(result.restoredCount, 2);
    EXPECT_EQ(result.warnings,
              std::vector{"Could not restore " + textOf(run.archived("2021/b.jpg")) +
                          " to original location: “folder” could not be written to the device: "
                          "Input/output error."});
}

/// Runs on one device and on two.
class UndoSafetyTest : public testing::TestWithParam<int> {
protected:
    void prepare(FaultyFileSystem& disk) const {
        if (GetParam() == 2) {
            spanTwoDevices(disk);
        }
    }

    std::size_t callsOfAnUndo() {
        const FinishedRun run(OperationMode::move);
        FaultyFileSystem disk(real);
        prepare(disk);
        EXPECT_EQ(UndoEngine(disk).rollback(run.manifest).restoredCount, 3);
        return disk.callCount();
    }

    PosixFileSystem real;
};

INSTANTIATE_TEST_SUITE_P(Devices, UndoSafetyTest, testing::Values(1, 2));

TEST_P(UndoSafetyTest, AnyCallMayFailOrBeTheLastAndASecondUndoCompletesTheFirst) {
    const std::size_t calls = callsOfAnUndo();
    for (std::size_t call = 0; call < 2 * calls; ++call) {
        const FinishedRun run(OperationMode::move);
        const std::size_t number = call / 2 + 1;
        const bool isKilled = call % 2 == 1;
        SCOPED_TRACE((isKilled ? "killed at call " : "failed call ") + std::to_string(number));
        const auto undo = [&] {
            FaultyFileSystem disk(real);
            prepare(disk);
            disk.failCall(number, EIO);
            disk.beforeEachCall([&](const DiskCall& made) {
                if (isKilled && made.number == number) {
                    raise(SIGKILL);
                }
            });
            return UndoEngine(disk).rollback(run.manifest);
        };
        if (isKilled) {
            EXPECT_TRUE(runInDoomedProcess(undo));
        } else {
            const UndoResult result = undo();
            EXPECT_EQ(result.restoredCount + result.failedCount, 3);
            EXPECT_EQ(result.failedCount, static_cast<std::int64_t>(result.warnings.size()));
        }
        run.expectNothingLost();
        FaultyFileSystem disk(real);
        prepare(disk);
        const UndoResult second = UndoEngine(disk).rollback(run.manifest);
        EXPECT_TRUE(!isKilled || second.failedCount == 0);
        run.expectRestored();
    }
}

} // namespace
} // namespace lumeo
