#include "transfer/FileOperationEngine.h"

#include "planning/DestinationPlanner.h"
#include "platform/TextFormat.h"
#include "proof/ChecksumList.h"
#include "transfer/OperationRun.h"
#include "transfer/RunOutlook.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace lumeo {
namespace {

std::optional<std::string> hopelessnessAfter(const VerifiedTransfer& transfers, RunOutlook& outlook,
                                             std::size_t next) {
    return transfers.lastError() ? outlook.hopelessness(next, *transfers.lastError()) : std::nullopt;
}

std::string earlyEnd(const std::string& reason, std::size_t filesLeft) {
    return reason + " The run ended early; " +
           TextFormat::count(static_cast<std::int64_t>(filesLeft), "file") +
           (filesLeft == 1 ? " was" : " were") + " not reached.";
}

std::string keptSources(const VerifiedTransfer::KeptSources& kept) {
    return "The copies are in the archive, but " + TextFormat::count(kept.count, "source") +
           " could not be removed: " +
           (kept.first->errnoValue == EROFS ? "their disk is write-protected."
                                            : "you may not remove files there.");
}

/// Adds what the run has proven to the archive's list. No file is read for this.
FileResult<void> listChecksums(FileSystem& fileSystem, const OperationManifest& run) {
    std::vector<Checksum> checksums;
    for (const FileTransactionItem& record : run.items) {
        const bool isThere =
            record.status == TransactionStatus::verified || record.status == TransactionStatus::skipped;
        if (isThere && record.destinationHash && record.destinationHash == record.sourceHash) {
            checksums.push_back(
                {record.destinationPath.relativeTo(run.destinationRoot), *record.destinationHash});
        }
    }
    return ChecksumList::extend(fileSystem, run.destinationRoot, checksums);
}

} // namespace

OperationManifest FileOperationEngine::execute(PreparedRun& prepared, std::span<const MediaItem> items,
                                               const OrganizationPlan& plan,
                                               const ProgressCallback& onProgress,
                                               const std::stop_token& stop) {
    reset();
    std::vector<MediaItem> replanned;
    if (prepared.archive.takesLessThanTold()) {
        replanned.assign(items.begin(), items.end());
        DestinationPlanner::plan(replanned, plan, fileSystem_, prepared.archive.disk(), stop);
        items = replanned;
    }
    RunJournal* const journal = prepared.journal.get();
    OperationRun run(items, prepared.head, clock_);
    VerifiedTransfer transfers(fileSystem_, prepared.archive, journal);
    RunOutlook outlook(fileSystem_, prepared.archive, prepared.head.sourceRoots, items);
    const auto note = [journal](const FileTransactionItem& record) {
        if (journal != nullptr) {
            journal->add(record);
        }
    };
    std::size_t taken = 0;
    while (taken < items.size() && mayTakeNextFile(stop)) {
        const MediaItem& item = items[taken++];
        run.take(item);
        if (run.isRepeatedDuplicate(item) && plan.duplicatePolicy == DuplicatePolicy::skipDuplicates) {
            note(run.addSkippedDuplicate(item));
            continue;
        }
        if (!item.plannedDestinationURL) {
            run.addMissingDestination();
            continue;
        }
        note(run.addTransferred(item, transfer(transfers, item, plan.operationMode)));
        if (isCancelled() || stop.stop_requested()) {
            continue;
        }
        if (const std::optional<std::string> hopelessness = hopelessnessAfter(transfers, outlook, taken)) {
            run.note(earlyEnd(*hopelessness, items.size() - taken));
            break;
        }
        if (const std::optional<OperationProgress> progress = run.sample(isPaused())) {
            onProgress(*progress);
        }
    }
    // A move has made its names durable one by one, before it removed the sources.
    if (plan.operationMode == OperationMode::copy) {
        std::ranges::for_each(run.withdraw(transfers.flushFolders()), note);
    }
    if (transfers.keptSources().first) {
        run.note(keptSources(transfers.keptSources()));
    }
    if (plan.listsChecksums) {
        if (const FileResult<void> listed = listChecksums(fileSystem_, run.manifest()); !listed) {
            run.note("The list of checksums could not be extended: " + listed.error().message());
        }
    }
    const OperationProgress last = run.finish(isCancelled() || stop.stop_requested());
    if (journal != nullptr) {
        journal->end(last);
    }
    onProgress(last);
    return std::move(run).takeManifest();
}

void FileOperationEngine::reset() {
    const MutexGuard guard(mutex_);
    isPaused_ = false;
    isCancelled_ = false;
    activeTransferToken_.reset();
}

bool FileOperationEngine::mayTakeNextFile(const std::stop_token& stop) {
    const MutexGuard guard(mutex_);
    wake_.wait(mutex_, stop, [this]() LUMEO_REQUIRES(mutex_) { return !isPaused_ || isCancelled_; });
    return !isCancelled_ && !stop.stop_requested();
}

FileTransactionItem FileOperationEngine::transfer(VerifiedTransfer& transfers, const MediaItem& item,
                                                  OperationMode mode) {
    const auto token = std::make_shared<TransferCancellationToken>();
    {
        const MutexGuard guard(mutex_);
        if (isCancelled_) {
            token->cancel();
        }
        activeTransferToken_ = token;
    }
    FileTransactionItem record = transfers.transferFile(item, *item.plannedDestinationURL, mode, *token);
    const MutexGuard guard(mutex_);
    activeTransferToken_.reset();
    return record;
}

bool FileOperationEngine::isPaused() {
    const MutexGuard guard(mutex_);
    return isPaused_;
}

bool FileOperationEngine::isCancelled() {
    const MutexGuard guard(mutex_);
    return isCancelled_;
}

void FileOperationEngine::pause() {
    const MutexGuard guard(mutex_);
    isPaused_ = !isCancelled_;
}

void FileOperationEngine::resume() {
    const MutexGuard guard(mutex_);
    isPaused_ = false;
    wake_.notify_all();
}

void FileOperationEngine::cancel() {
    std::shared_ptr<TransferCancellationToken> token;
    {
        const MutexGuard guard(mutex_);
        isCancelled_ = true;
        isPaused_ = false;
        token = activeTransferToken_;
        wake_.notify_all();
    }
    // This may wait until a source is removed. Such a wait must not block pause() and resume().
    if (token) {
        token->cancel();
    }
}

} // namespace lumeo
