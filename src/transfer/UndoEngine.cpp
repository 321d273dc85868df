#include "transfer/UndoEngine.h"

#include "hashing/StreamingHashService.h"
#include "model/OrganizationPlan.h"
#include "platform/AsciiCase.h"
#include "proof/ChecksumList.h"
#include "transfer/ArchiveHold.h"
#include "transfer/FolderFlusher.h"
#include "transfer/HeldFile.h"
#include "transfer/VerifiedCopy.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace lumeo {
namespace {

enum class Ending { restored, missing, failed };

/// What happened to one verified file of the journal.
struct Outcome {
    Ending ending = Ending::restored;
    std::string warning; ///< empty when restored
};

Outcome failed(std::string warning) {
    return {Ending::failed, std::move(warning)};
}

Outcome leftAlone(const FileTransactionItem& item, std::string_view reason) {
    return failed("Skipped rolling back " + item.destinationPath.displayText() + ": " + std::string(reason));
}

Outcome modified(const FileTransactionItem& item) {
    return leftAlone(item, "File was modified after transfer.");
}

Outcome stopped(const FileTransactionItem& item) {
    return leftAlone(item, "The undo was stopped.");
}

Outcome originalGone(const FileTransactionItem& item) {
    return failed("Left in place: its original is no longer there: " + item.destinationPath.displayText());
}

Outcome originalExists(const FileTransactionItem& item) {
    return failed("Original path already exists, will not overwrite: " + item.originalPath.displayText());
}

Outcome notRestored(const FileTransactionItem& item, const TransferError& error) {
    return failed("Could not restore " + item.destinationPath.displayText() +
                  " to original location: " + message(error));
}

bool isMoveRun(const OperationManifest& manifest) {
    return equalIgnoringAsciiCase(manifest.operationType, rawValue(OperationMode::move));
}

/// True when `folder`, or the nearest existing folder above it, is `root` or is below it, with all links
/// followed. Going up by ".." follows the folders themselves and not the names that led there.
bool leadsInto(const FileSystem& fileSystem, const FilePath& root, const FilePath& folder) {
    const FileResult<FileStatus> wanted = fileSystem.targetStatus(root);
    FilePath at = fileSystem.nearestExisting(folder);
    FileResult<FileStatus> status = fileSystem.targetStatus(at);
    while (wanted && status) {
        if (status->identity == wanted->identity) {
            return true;
        }
        at = at.appending("..");
        FileResult<FileStatus> above = fileSystem.targetStatus(at);
        if (above && above->identity == status->identity) {
            return false; // the root of the file system
        }
        status = std::move(above);
    }
    return false;
}

/// The folder of the source that the record's file came from. Empty when the journal names none.
FilePath sourceFolder(const OperationManifest& manifest, const FilePath& original) {
    for (const FilePath& root : manifest.sourceRoots) {
        const std::string prefix = root.bytes().ends_with('/') ? root.bytes() : root.bytes() + "/";
        if (original == root) {
            return root.parent(); // the file itself was a source
        }
        if (original.bytes().starts_with(prefix)) {
            return root;
        }
    }
    return {};
}

bool isForeign(const OperationManifest& manifest, const FilePath& root) {
    return std::ranges::any_of(manifest.foreignRoots,
                               [&root](const FilePath& one) { return one == root || one.parent() == root; });
}

/// Whether a copy's original seems to exist, without reading it: a separate file, not a link, with the size
/// that was copied.
bool seemsToHaveOriginal(const FileSystem& fileSystem, const FileTransactionItem& item) {
    const FileResult<FileStatus> original = fileSystem.status(item.originalPath);
    const FileResult<FileStatus> archived = fileSystem.targetStatus(item.destinationPath);
    return original && archived && original->kind == FileKind::regular && original->size == item.size &&
           original->identity != archived->identity;
}

/// Undoes one run, file by file.
class Rollback {
public:
    Rollback(FileSystem& fileSystem, const OperationManifest& manifest, std::stop_token stop)
        : fileSystem_(fileSystem),
          manifest_(manifest),
          folders_(fileSystem),
          isMove_(isMoveRun(manifest)),
          cancelled_([stop = std::move(stop)] { return stop.stop_requested(); }) {}

    Outcome rollBack(const FileTransactionItem& item);

    /// True when the record's file is not at its original place either.
    [[nodiscard]] bool isLost(const FileTransactionItem& item) const;

    /// Returns the folders whose changes the device refused.
    std::vector<UnflushedFolder> flushFolders() { return folders_.flushAll(); }

private:
    [[nodiscard]] std::optional<Outcome> outOfReach(const FileTransactionItem& item) const;
    [[nodiscard]] bool isOnSystemDevice(const FilePath& folder) const;
    [[nodiscard]] bool hasOriginal(const FileTransactionItem& item) const;
    [[nodiscard]] bool isUnchangedSinceRun(const FileStatus& original) const;
    Outcome remove(const FileTransactionItem& item, HeldFile& archived);
    Outcome moveBack(const FileTransactionItem& item, HeldFile& archived);
    Outcome finishEarlierMove(const FileTransactionItem& item, HeldFile& archived);
    TransferResult<void> moveAcross(const FileTransactionItem& item, HeldFile& archived);
    TransferResult<void> removeArchived(const FilePath& originalPath, HeldFile& archived);
    [[nodiscard]] std::optional<HeldFile> provenFile(const FilePath& path, const std::string& digest) const;
    [[nodiscard]] bool areTwoNames(const HeldFile& a, const HeldFile& b) const;

    FileSystem& fileSystem_;
    const OperationManifest& manifest_;
    FolderFlusher folders_;
    bool isMove_;
    CancellationCheck cancelled_;
};

Outcome Rollback::rollBack(const FileTransactionItem& item) {
    if (cancelled_()) {
        return stopped(item);
    }
    if (std::optional<Outcome> outcome = outOfReach(item)) {
        return *std::move(outcome);
    }
    if (!fileSystem_.exists(item.destinationPath)) {
        return {Ending::missing, "Destination file was not found: " + item.destinationPath.displayText()};
    }
    if (!item.destinationHash) {
        return leftAlone(item, "No recorded hash.");
    }
    if (!isMove_ && !seemsToHaveOriginal(fileSystem_, item)) { // before the whole archived file is read
        return originalGone(item);
    }
    std::optional<HeldFile> archived = provenFile(item.destinationPath, *item.destinationHash);
    if (!archived) {
        return cancelled_() ? stopped(item) : modified(item);
    }
    return isMove_ ? moveBack(item, *archived) : remove(item, *archived);
}

/// Why the files of the record must not be touched at all.
std::optional<Outcome> Rollback::outOfReach(const FileTransactionItem& item) const {
    if (!leadsInto(fileSystem_, manifest_.destinationRoot, item.destinationPath.parent())) {
        return leftAlone(item, "Its folder leads out of the archive.");
    }
    if (!isMove_) {
        return std::nullopt;
    }
    const FilePath source = sourceFolder(manifest_, item.originalPath);
    const bool isGone = !fileSystem_.targetStatus(source);
    if (isGone || (isForeign(manifest_, source) && isOnSystemDevice(source))) {
        return leftAlone(item,
                         "Its source is not there: " + source.displayText() + " (is its drive connected?)");
    }
    if (!leadsInto(fileSystem_, source, item.originalPath.parent())) {
        return leftAlone(item, "Its original folder leads out of its source.");
    }
    return std::nullopt;
}

/// When a drive is gone, its mount point may be an empty folder of the disk below.
bool Rollback::isOnSystemDevice(const FilePath& folder) const {
    return deviceUnder(fileSystem_, folder) == deviceUnder(fileSystem_, FilePath("/"));
}

bool Rollback::isLost(const FileTransactionItem& item) const {
    const FileResult<FileStatus> original = fileSystem_.status(item.originalPath);
    return !original || original->kind != FileKind::regular || original->size != item.size;
}

/// Whether the content that was copied to the archive still exists under its original name.
bool Rollback::hasOriginal(const FileTransactionItem& item) const {
    const FileResult<FileStatus> original = fileSystem_.status(item.originalPath);
    return original && seemsToHaveOriginal(fileSystem_, item) &&
           (isUnchangedSinceRun(*original) || provenFile(item.originalPath, *item.destinationHash));
}

bool Rollback::isUnchangedSinceRun(const FileStatus& original) const {
    // Memory cards store times in steps of two seconds, and the system's clock is coarser than ours.
    const Instant before = manifest_.timestamp - std::chrono::seconds(2);
    const auto isOlder = [before](const std::optional<Instant>& date) { return !date || *date < before; };
    return original.modificationDate && isOlder(original.modificationDate) && isOlder(original.changeDate);
}

/// The file at `path` itself, without following a link, if its content has this digest. Absent otherwise.
std::optional<HeldFile> Rollback::provenFile(const FilePath& path, const std::string& digest) const {
    FileResult<HeldFile> file = HeldFile::open(fileSystem_, path);
    if (!file) {
        return std::nullopt;
    }
    const Result<std::string, HashError> found =
        StreamingHashService::computeSHA256(fileSystem_, path, StreamingHashService::chunkSize, cancelled_);
    if (!found || *found != digest) {
        return std::nullopt;
    }
    const FileResult<bool> unchanged = file->isUnchanged();
    return unchanged && *unchanged ? std::optional(*std::move(file)) : std::nullopt;
}

Outcome Rollback::remove(const FileTransactionItem& item, HeldFile& archived) {
    if (!hasOriginal(item)) { // it may have been removed while the archived file was read
        return cancelled_() ? stopped(item) : originalGone(item);
    }
    const TransferResult<void> removed = archived.remove();
    if (removed) {
        return {};
    }
    if (removed.error() == TransferError(TransferFault::sourceChanged)) {
        return modified(item);
    }
    return failed("Could not delete " + item.destinationPath.displayText() + ": " + message(removed.error()));
}

Outcome Rollback::moveBack(const FileTransactionItem& item, HeldFile& archived) {
    const auto created = folders_.createFolders(item.originalPath.parent());
    static_cast<void>(created); // the renaming below reports the same problem
    if (fileSystem_.exists(item.originalPath)) {
        return finishEarlierMove(item, archived);
    }
    const FileResult<void> renamed =
        fileSystem_.renameWithoutReplacing(item.destinationPath, item.originalPath);
    if (renamed) {
        // The folder that gains the name is flushed before the one that loses it. A refusal is remembered and
        // reported at the end.
        folders_.note(item.originalPath.parent());
        static_cast<void>(folders_.flushPathTo(item.originalPath.parent()));
        folders_.note(item.destinationPath.parent());
        return {};
    }
    if (renamed.error().errnoValue == EEXIST) {
        return originalExists(item);
    }
    if (renamed.error().errnoValue != EXDEV) {
        return notRestored(item, renamed.error());
    }
    const TransferResult<void> moved = moveAcross(item, archived);
    if (moved) {
        return {};
    }
    return moved.error() == TransferError(TransferFault::destinationAlreadyExists)
               ? originalExists(item)
               : notRestored(item, moved.error());
}

/// The original may exist because an earlier rollback was cut short after restoring it, or because the run
/// was cancelled before removing it. If it is proven to have the same content and a separate name, only the
/// archived copy has to be removed.
Outcome Rollback::finishEarlierMove(const FileTransactionItem& item, HeldFile& archived) {
    const std::optional<HeldFile> original = provenFile(item.originalPath, *item.destinationHash);
    if (!original || !areTwoNames(*original, archived)) {
        return originalExists(item);
    }
    const TransferResult<void> removed = removeArchived(item.originalPath, archived);
    return removed ? Outcome{} : notRestored(item, removed.error());
}

/// True for two files, or for two links to one file. If both paths lead to the same link, it is false,
/// because removing one name would remove the file.
bool Rollback::areTwoNames(const HeldFile& a, const HeldFile& b) const {
    if (a.identity() != b.identity()) {
        return true;
    }
    const FileResult<FileStatus> folderOfA = fileSystem_.targetStatus(a.path().parent());
    const FileResult<FileStatus> folderOfB = fileSystem_.targetStatus(b.path().parent());
    return folderOfA && folderOfB && folderOfA->identity != folderOfB->identity;
}

/// Moves a file back to another file system, where renaming is not possible.
TransferResult<void> Rollback::moveAcross(const FileTransactionItem& item, HeldFile& archived) {
    VerifiedCopy copy(fileSystem_, item.originalPath, cancelled_);
    if (TransferResult<void> created = copy.create(item.destinationPath); !created) {
        return created;
    }
    if (TransferResult<void> written = copy.write(archived.content()); !written) {
        return written;
    }
    if (TransferResult<void> flushed = copy.flush(); !flushed) {
        return flushed;
    }
    const TransferResult<std::string> digest = copy.digest();
    if (!digest) {
        return digest.error();
    }
    if (*digest != item.destinationHash) {
        return TransferError(TransferFault::checksumMismatch);
    }
    if (TransferResult<void> placed = copy.place(); !placed) {
        return placed;
    }
    return removeArchived(item.originalPath, archived);
}

/// The original's name is made durable before the archived copy is removed.
TransferResult<void> Rollback::removeArchived(const FilePath& originalPath, HeldFile& archived) {
    const FilePath folder = originalPath.parent();
    folders_.note(folder);
    if (const FileResult<void> durable = folders_.flushPathTo(folder); !durable) {
        return TransferError(durable.error());
    }
    return archived.remove();
}

/// Removes the run's files that are gone again from the archive's list.
FileResult<void> withdrawChecksums(FileSystem& fileSystem, const OperationManifest& run) {
    std::unordered_map<std::string, std::string_view> digests;
    for (const FileTransactionItem& record : run.items) {
        if (record.status == TransactionStatus::verified && record.destinationHash) {
            digests.emplace(record.destinationPath.relativeTo(run.destinationRoot), *record.destinationHash);
        }
    }
    return ChecksumList::withdraw(fileSystem, run.destinationRoot, [&](const Checksum& listed) {
        const auto brought = digests.find(listed.name);
        return brought != digests.end() && brought->second == listed.digest &&
               !fileSystem.exists(run.destinationRoot.appending(listed.name));
    });
}

} // namespace

UndoResult UndoEngine::rollback(const OperationManifest& manifest, const ProgressCallback& onProgress,
                                std::stop_token stop) {
    Rollback rollback(fileSystem_, manifest, std::move(stop));
    const auto isToBeUndone = [](const FileTransactionItem& item) {
        return item.status == TransactionStatus::verified;
    };
    UndoProgress progress;
    progress.totalFiles = std::ranges::count_if(manifest.items, isToBeUndone);
    std::vector<std::pair<const FileTransactionItem*, Outcome>> outcomes;
    for (const FileTransactionItem& item : manifest.items) {
        if (isToBeUndone(item)) {
            progress.currentItemName = item.destinationPath.lastComponent();
            onProgress(progress);
            outcomes.emplace_back(&item, rollback.rollBack(item));
            ++progress.processedCount;
        }
    }
    progress.currentItemName.clear();
    onProgress(progress);
    const std::vector<UnflushedFolder> unflushed = rollback.flushFolders();
    UndoResult result;
    for (auto& [item, outcome] : outcomes) {
        const auto refused = std::find_if(unflushed.begin(), unflushed.end(), [file = item](const auto& one) {
            return one.endangers(file->originalPath) || one.endangers(file->destinationPath);
        });
        if (outcome.ending == Ending::restored && refused != unflushed.end()) {
            outcome = notRestored(*item, refused->error);
        }
        std::int64_t& count = outcome.ending == Ending::restored  ? result.restoredCount
                              : outcome.ending == Ending::missing ? result.skippedCount
                                                                  : result.failedCount;
        ++count;
        result.lostCount += outcome.ending == Ending::missing && rollback.isLost(*item) ? 1 : 0;
        if (!outcome.warning.empty()) {
            result.warnings.push_back(std::move(outcome.warning));
        }
    }
    return result;
}

UndoForecast UndoEngine::forecast(const OperationManifest& manifest, const std::stop_token& stop) const {
    UndoForecast forecast;
    for (const FileTransactionItem& item : manifest.items) {
        if (item.status != TransactionStatus::verified || stop.stop_requested()) {
            continue;
        }
        ++forecast.files;
        if (isMoveRun(manifest)) {
            continue;
        }
        if (fileSystem_.exists(item.destinationPath) && !seemsToHaveOriginal(fileSystem_, item)) {
            ++forecast.withoutOriginal;
        }
    }
    return forecast;
}

Result<UndoResult, RunRefusal> takeBack(FileSystem& fileSystem, const OperationManifest& manifest,
                                        const RunJournals& journals, const FilePath& journal,
                                        const UndoEngine::ProgressCallback& onProgress,
                                        std::stop_token stop) {
    const Result<ArchiveHold, RunRefusal> archive = ArchiveHold::forUndo(fileSystem, manifest);
    if (!archive) {
        return archive.error();
    }
    UndoResult result = UndoEngine(fileSystem).rollback(manifest, onProgress, std::move(stop));
    // If the list cannot be rewritten, it stays complete, and a verification reports the missing files.
    static_cast<void>(withdrawChecksums(fileSystem, manifest));
    if (result.isComplete()) {
        // If this cannot be noted, a second undo finds everything restored.
        static_cast<void>(journals.markUndone(journal));
    }
    return result;
}

} // namespace lumeo
