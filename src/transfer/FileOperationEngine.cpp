#include "transfer/FileOperationEngine.h"

#include "transfer/OperationRun.h"

#include <algorithm>
#include <utility>

namespace lumeo {

OperationManifest FileOperationEngine::execute(PreparedRun& prepared, std::span<const MediaItem> items,
                                               const OrganizationPlan& plan,
                                               const ProgressCallback& onProgress,
                                               const std::stop_token& stop) {
    reset();
    RunJournal* const journal = prepared.journal.get();
    OperationRun run(items, prepared.head, clock_);
    VerifiedTransfer transfers(fileSystem_, prepared.archive, journal);
    const auto note = [journal](const FileTransactionItem& record) {
        if (journal != nullptr) {
            journal->add(record);
        }
    };
    for (const MediaItem& item : items) {
        if (!mayTakeNextFile(stop)) {
            break;
        }
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
        if (const std::optional<OperationProgress> progress = run.sample(isPaused())) {
            onProgress(*progress);
        }
    }
    // A move has made its names durable one by one, before it removed their sources.
    if (plan.operationMode == OperationMode::copy) {
        std::ranges::for_each(run.withdraw(transfers.flushFolders()), note);
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
    // May have to wait for the removal of a source, which must not hold up pause() and resume().
    if (token) {
        token->cancel();
    }
}

} // namespace lumeo
