#include "archive/MadeLibrary.h"
#include "hashing/StreamingHashService.h"
#include "planning/DestinationPlanner.h"
#include "platform/PosixFileSystem.h"
#include "scan/MediaScanner.h"
#include "support/FaultyFileSystem.h"
#include "support/SystemSettings.h"
#include "support/TempFolder.h"
#include "transfer/FileOperationEngine.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <set>

namespace lumeo {
namespace {

/// The content of a file and everything that the system tells about it.
struct Snapshot {
    FileStatus status;
    std::string digest;
    friend bool operator==(const Snapshot&, const Snapshot&) = default;
};

/// Takes a made library through a scan, a plan and a run, and checks the files after each step.
class ArchiveTest : public testing::Test {
protected:
    /// The suite uses a library that has every kind of file many times. A larger one can be requested by
    /// hand.
    static int fileCount() {
        const char* const wanted = std::getenv("LUMEO_ARCHIVE_FILES");
        return wanted == nullptr ? 2000 : std::atoi(wanted);
    }

    void make(int files) {
        library_.emplace(real_, folder_ / "library", files);
        plan_.destinationURL = folder_ / "Archive";
    }

    void scanAndPlan() {
        const SystemClock clock;
        const SystemVolumes volumes;
        MediaScanner scanner(disk_, volumes, clock);
        items_ =
            scanner.scan(library_->sources, [this](const ScanProgress& progress) { scanned_ = progress; });
        DestinationPlanner::plan(items_, plan_, disk_);
    }

    OperationManifest run() {
        SystemClock clock;
        Result<PreparedRun, RunRefusal> run =
            prepareRun(disk_, clock, RunJournals(real_, journals_.path()), plan_, library_->sources,
                       std::ssize(items_), std::nullopt);
        EXPECT_TRUE(run) << run.error().sentence;
        return FileOperationEngine(disk_, clock).execute(*run, items_, plan_, [](const OperationProgress&) {
        });
    }

    /// Everything below `root`, links and folders included.
    [[nodiscard]] std::map<FilePath, Snapshot> snapshot(const FilePath& root) const {
        std::map<FilePath, Snapshot> snapshots;
        auto walk = real_.enumerate(root, {});
        EXPECT_TRUE(walk);
        while (std::optional<DirectoryEntry> entry = (*walk)->next()) {
            Snapshot& made = snapshots[entry->path];
            made.status = entry->status.value();
            if (made.status.kind == FileKind::regular) {
                made.digest = digest(entry->path);
            }
        }
        return snapshots;
    }

    [[nodiscard]] std::string digest(const FilePath& path) const {
        const auto computed = StreamingHashService::computeSHA256(
            real_, path, StreamingHashService::chunkSize, [] { return false; });
        return computed ? *computed : "unreadable";
    }

    [[nodiscard]] std::set<FilePath> filesIn(const FilePath& root) const {
        std::set<FilePath> files;
        for (const auto& [path, found] : snapshot(root)) {
            if (found.status.kind != FileKind::folder) {
                files.insert(path);
            }
        }
        return files;
    }

    /// Compares each item with what is known about its file. Every file must have its item.
    void expectItemsAsMade() const {
        std::map<FilePath, MadeMedia> missing = library_->media;
        for (const MediaItem& item : items_) {
            const auto known = missing.extract(item.sourceURL);
            ASSERT_FALSE(known.empty()) << item.sourceURL.displayText() << " is unknown or came twice";
            const MadeMedia& made = known.mapped();
            SCOPED_TRACE(item.sourceURL.displayText());
            EXPECT_EQ(item.mediaType, made.mediaType);
            EXPECT_EQ(item.fileSize, made.size);
            EXPECT_EQ(item.resolvedDate, made.captureDate);
            EXPECT_EQ(item.dateSource, made.dateSource);
        }
        EXPECT_TRUE(missing.empty()) << missing.size() << " not found, such as "
                                     << missing.begin()->first.displayText();
    }

    /// Compares each destination with the rules of the archive, written here in their simplest form: the
    /// first file gets the name, and the next ones get a number from 2.
    void expectDestinationsAsKnown(std::set<FilePath> taken) const {
        for (const MediaItem& item : items_) {
            const FilePath folder =
                plan_.destinationURL->appending(library_->media.at(item.sourceURL).folder);
            FilePath expected = folder.appending(item.fileName());
            for (int number = 2; taken.contains(expected); ++number) {
                expected = folder.appending(std::string(deletingPathExtension(item.fileName())) + "_" +
                                            std::to_string(number) + "." + std::string(item.fileExtension()));
            }
            taken.insert(expected);
            ASSERT_EQ(item.plannedDestinationURL, expected) << item.sourceURL.displayText();
        }
    }

    void expectEachArchived(const OperationManifest& manifest) const {
        ASSERT_EQ(manifest.items.size(), items_.size());
        for (std::size_t i = 0; i < items_.size(); ++i) {
            const FileTransactionItem& record = manifest.items[i];
            SCOPED_TRACE(record.originalPath.displayText());
            EXPECT_EQ(record.status, TransactionStatus::verified) << record.errorMessage.value_or("");
            EXPECT_EQ(record.destinationPath, items_[i].plannedDestinationURL);
            EXPECT_EQ(record.sourceHash, record.destinationHash);
            EXPECT_EQ(record.destinationHash, digest(record.destinationPath));
        }
        EXPECT_EQ(manifest.totalTransferredBytes, library_->counters.totalBytesScanned);
    }

    ScopedTimeZone zone_{"America/New_York"};
    TempFolder folder_;
    TempFolder journals_;
    PosixFileSystem real_;
    FaultyFileSystem disk_{real_};
    std::optional<MadeLibrary> library_;
    OrganizationPlan plan_;
    ScanProgress scanned_;
    std::vector<MediaItem> items_;
};

TEST_F(ArchiveTest, ArchivesALibraryWholeAndTouchesNothingElse) {
    make(fileCount());
    const auto before = snapshot(folder_.path());
    std::set<std::string> writingCalls;
    disk_.beforeEachCall([&](const DiskCall& call) {
        using enum FileAction;
        const std::set<FileAction> writing{create, write, rename, remove, createFolder};
        if (writing.contains(call.action)) {
            writingCalls.insert(std::string(call.operation));
            EXPECT_TRUE(call.path.bytes().starts_with(plan_.destinationURL->bytes()))
                << call.operation << " " << call.path.displayText();
        }
    });

    scanAndPlan();
    expectItemsAsMade();
    scanned_.currentItemName.clear();
    scanned_.scanDurationSeconds = 0;
    EXPECT_EQ(scanned_, library_->counters) << encode(scanned_) << encode(library_->counters);
    expectDestinationsAsKnown({});
    EXPECT_TRUE(writingCalls.empty()) << "a scan and a plan only read";
    EXPECT_FALSE(real_.exists(*plan_.destinationURL));

    const OperationManifest manifest = run();
    expectEachArchived(manifest);
    std::set<FilePath> destinations;
    for (const MediaItem& item : items_) {
        destinations.insert(*item.plannedDestinationURL);
        EXPECT_EQ(digest(*item.plannedDestinationURL), digest(item.sourceURL));
    }
    EXPECT_EQ(filesIn(*plan_.destinationURL), destinations) << "each file, and nothing but the files";

    auto after = snapshot(folder_.path());
    std::erase_if(after, [&](const auto& entry) {
        return entry.first.bytes().starts_with(plan_.destinationURL->bytes());
    });
    EXPECT_EQ(after, before) << "the sources are as they were, content and times";
}

TEST_F(ArchiveTest, WritesNothingOverAnythingWhenRunAgain) {
    make(200);
    scanAndPlan();
    run();
    auto archived = snapshot(*plan_.destinationURL);
    for (const bool isPlannedAnew : {false, true}) {
        if (isPlannedAnew) {
            scanAndPlan();
        }
        for (const FileTransactionItem& record : run().items) {
            EXPECT_EQ(record.status, TransactionStatus::skipped) << record.originalPath.displayText();
        }
        EXPECT_EQ(snapshot(*plan_.destinationURL), archived) << "each copy is known again";
    }

    const std::set<FilePath> taken = filesIn(*plan_.destinationURL);
    for (const FilePath& path : taken) {
        std::ofstream(path.bytes(), std::ios::app) << "edited";
    }
    archived = snapshot(*plan_.destinationURL);
    scanAndPlan();
    expectDestinationsAsKnown(taken);
    expectEachArchived(run());
    auto now = snapshot(*plan_.destinationURL);
    EXPECT_EQ(filesIn(*plan_.destinationURL).size(), 2 * taken.size());
    for (const FilePath& path : taken) {
        EXPECT_EQ(now[path], archived[path]) << path.displayText();
    }
}

TEST_F(ArchiveTest, MovesTheMediaAndLeavesTheRestWhereItIs) {
    make(200);
    const auto before = snapshot(folder_ / "library");
    plan_.operationMode = OperationMode::move;
    scanAndPlan();
    expectEachArchived(run());

    std::set<std::string> archived;
    for (const MediaItem& item : items_) {
        EXPECT_FALSE(real_.exists(item.sourceURL));
        archived.insert(digest(*item.plannedDestinationURL));
    }
    const auto after = snapshot(folder_ / "library");
    for (const auto& [path, was] : before) {
        if (was.status.kind == FileKind::regular && !after.contains(path)) {
            EXPECT_TRUE(archived.contains(was.digest)) << path.displayText();
        } else if (was.status.kind == FileKind::regular) {
            EXPECT_EQ(after.at(path), was) << path.displayText();
        }
    }
    EXPECT_EQ(after.size(), before.size() - items_.size());
}

} // namespace
} // namespace lumeo
