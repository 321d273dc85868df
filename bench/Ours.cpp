#include "hashing/DuplicateDetector.h"
#include "planning/DestinationPlanner.h"
#include "platform/Clock.h"
#include "platform/PosixFileSystem.h"
#include "scan/MediaScanner.h"
#include "transfer/FileOperationEngine.h"
#include "transfer/UndoEngine.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <exception>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

/// The program's own work without an interface, one task for each process. Each task prints one line of JSON:
/// what it did, the seconds that the work itself took, and its memory in bytes at the start and at the peak.
namespace lumeo::bench {
namespace {

/// A figure of /proc/self/status, in bytes.
std::int64_t memory(std::string_view name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(name)) {
            return std::stoll(line.substr(name.size() + 1)) * 1024;
        }
    }
    return 0;
}

class Measurement {
public:
    void begin() {
        memoryAtStart_ = memory("VmRSS");
        began_ = clock_.elapsed();
    }
    void end(std::size_t files, std::int64_t bytes) {
        const std::chrono::duration<double> seconds = clock_.elapsed() - began_;
        std::cout << Json{{"files", files},
                          {"bytes", bytes},
                          {"seconds", seconds.count()},
                          {"memoryAtStart", memoryAtStart_}}
                  << '\n';
    }

private:
    SystemClock clock_;
    std::int64_t memoryAtStart_ = 0;
    std::chrono::nanoseconds began_{};
};

std::int64_t totalBytes(const std::vector<MediaItem>& items) {
    std::int64_t bytes = 0;
    for (const MediaItem& item : items) {
        bytes += item.fileSize;
    }
    return bytes;
}

void scan(const FilePath& folder) {
    const PosixFileSystem fileSystem;
    const SystemVolumes volumes;
    const SystemClock clock;
    MediaScanner scanner(fileSystem, volumes, clock);
    Measurement measurement;
    measurement.begin();
    const std::vector<MediaItem> items = scanner.scan(std::vector{folder}, [](const ScanProgress&) {});
    measurement.end(items.size(), totalBytes(items));
}

/// An item of the catalogue with its own date. A few hundred items share a month.
MediaItem itemOf(FilePath path, std::int64_t size, std::size_t index) {
    MediaItem item;
    item.id = Uuid::random();
    item.sourceURL = std::move(path);
    item.mediaType = MediaType::video;
    item.fileSize = size;
    item.resolvedDate = codedEpoch + std::chrono::hours(120'000 + 2 * static_cast<std::int64_t>(index));
    item.dateSource = DateSourceType::exifDateTimeOriginal;
    item.dateConfidence = DateConfidence::high;
    return item;
}

/// The result of scanning a folder of movies, without the cost of a scan.
std::vector<MediaItem> catalogueOf(const FileSystem& fileSystem, const FilePath& folder) {
    std::vector<MediaItem> items;
    const auto walk = fileSystem.enumerate(folder, [](const FileError&) {});
    while (auto entry = walk ? walk.value()->next() : std::nullopt) {
        if (entry->status && entry->status->kind == FileKind::regular) {
            items.push_back(itemOf(entry->path, entry->status->size, items.size()));
        }
    }
    return items;
}

void duplicates(const FilePath& folder) {
    const PosixFileSystem fileSystem;
    std::vector<MediaItem> items = catalogueOf(fileSystem, folder);
    DuplicateDetector detector(fileSystem);
    Measurement measurement;
    measurement.begin();
    items = detector.detectDuplicates(std::move(items));
    measurement.end(items.size(), totalBytes(items));
}

/// Plans `count` items. With `sameName` all have one name and one month.
void plan(std::size_t count, bool sameName, const FilePath& destination) {
    const PosixFileSystem fileSystem;
    std::vector<MediaItem> items;
    for (std::size_t i = 0; i < count; ++i) {
        const std::string folder = "/media/card/DCIM/" + std::to_string(100 + i / 1'000) + "CANON/";
        const std::string name = sameName ? "IMG_0001.JPG" : "IMG_" + std::to_string(i % 10'000) + ".JPG";
        items.push_back(itemOf(FilePath(folder + name), 4'000'000, sameName ? 0 : i));
    }
    OrganizationPlan organization;
    organization.destinationURL = destination;
    Measurement measurement;
    measurement.begin();
    DestinationPlanner::plan(items, organization, fileSystem);
    measurement.end(items.size(), totalBytes(items));
}

/// Plans, copies and writes the journal to `journal`. Returns whether every file was verified.
bool copy(const FilePath& folder, const FilePath& destination, const FilePath& journal) {
    PosixFileSystem fileSystem;
    const SystemClock clock;
    std::vector<MediaItem> items = catalogueOf(fileSystem, folder);
    OrganizationPlan organization;
    organization.destinationURL = destination;
    FileOperationEngine engine(fileSystem, clock);
    Measurement measurement;
    measurement.begin();
    DestinationPlanner::plan(items, organization, fileSystem);
    const RunJournals journals(fileSystem, destination.parent().appending("journals"));
    Result<PreparedRun, RunRefusal> run = prepareRun(fileSystem, clock, journals, organization,
                                                     std::vector{folder}, std::ssize(items), std::nullopt);
    if (!run) {
        std::cerr << run.error().sentence << '\n';
        return false;
    }
    const OperationManifest manifest =
        engine.execute(*run, items, organization, [](const OperationProgress&) {});
    measurement.end(items.size(), manifest.totalTransferredBytes);
    std::ofstream(journal.bytes()) << encode(manifest);
    return std::ranges::all_of(manifest.items, [](const FileTransactionItem& record) {
        return record.status == TransactionStatus::verified;
    });
}

/// Returns whether every file was restored.
bool undo(const FilePath& journal) {
    std::ifstream text(journal.bytes());
    const auto manifest = decodeOperationManifest(Json::parse(text));
    if (!manifest) {
        std::cerr << manifest.error().message() << '\n';
        return false;
    }
    PosixFileSystem fileSystem;
    UndoEngine engine(fileSystem);
    Measurement measurement;
    measurement.begin();
    const UndoResult result = engine.rollback(*manifest);
    measurement.end(static_cast<std::size_t>(result.restoredCount), manifest->totalTransferredBytes);
    return result.warnings.empty();
}

int run(int argc, char** argv) {
    std::string folder;
    std::string destination;
    std::string journal;
    std::size_t count = 0;
    bool sameName = false;
    CLI::App app("The pieces of the program's work that bench/run measures.");
    app.require_subcommand(1);
    CLI::App* scanCommand = app.add_subcommand("scan", "the catalogue of FOLDER");
    CLI::App* duplicatesCommand = app.add_subcommand("duplicates", "the identical files of FOLDER");
    CLI::App* planCommand = app.add_subcommand("plan", "the places of COUNT made-up items below DESTINATION");
    CLI::App* copyCommand = app.add_subcommand("copy", "FOLDER to an archive at DESTINATION");
    CLI::App* undoCommand = app.add_subcommand("undo", "the run of JOURNAL");
    for (CLI::App* command : {scanCommand, duplicatesCommand, copyCommand}) {
        command->add_option("FOLDER", folder)->required();
    }
    planCommand->add_option("COUNT", count)->required();
    planCommand->add_flag("--same-name", sameName);
    for (CLI::App* command : {planCommand, copyCommand}) {
        command->add_option("DESTINATION", destination)->required();
    }
    for (CLI::App* command : {copyCommand, undoCommand}) {
        command->add_option("JOURNAL", journal)->required();
    }
    CLI11_PARSE(app, argc, argv);

    bool allWell = true;
    if (*scanCommand) {
        scan(FilePath::standardized(folder));
    } else if (*duplicatesCommand) {
        duplicates(FilePath::standardized(folder));
    } else if (*planCommand) {
        plan(count, sameName, FilePath::standardized(destination));
    } else if (*copyCommand) {
        allWell = copy(FilePath::standardized(folder), FilePath::standardized(destination),
                       FilePath::standardized(journal));
    } else {
        allWell = undo(FilePath::standardized(journal));
    }
    return allWell ? 0 : 1;
}

} // namespace
} // namespace lumeo::bench

int main(int argc, char** argv) {
    try {
        return lumeo::bench::run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
