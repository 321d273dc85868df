#pragma once

#include "model/MediaItem.h"
#include "model/OrganizationPlan.h"
#include "platform/FileSystem.h"
#include "platform/Mutex.h"
#include "transfer/ArchiveHold.h"
#include "transfer/FolderFlusher.h"
#include "transfer/HeldFile.h"
#include "transfer/OperationManifest.h"
#include "transfer/RunJournal.h"
#include "transfer/TransferError.h"
#include "transfer/VerifiedCopy.h"

#include <string>
#include <utility>
#include <vector>

namespace lumeo {

/// Stops one file's transfer. The transfer and the code that cancels it share the token. Any thread may call.
class TransferCancellationToken {
public:
    void cancel() {
        const MutexGuard guard(mutex_);
        cancelled_ = true;
    }

    [[nodiscard]] bool isCancelled() const {
        const MutexGuard guard(mutex_);
        return cancelled_;
    }

    /// Runs `removal` unless cancelled, and makes cancel() wait while it runs. So a cancel comes either
    /// before the removal and prevents it, or after it. Returns whether it ran.
    template<class Removal>
    bool unlessCancelled(Removal&& removal) {
        const MutexGuard guard(mutex_);
        if (cancelled_) {
            return false;
        }
        std::forward<Removal>(removal)();
        return true;
    }

private:
    mutable Mutex mutex_;
    bool cancelled_ LUMEO_GUARDED_BY(mutex_) = false;
};

/// Brings one file into the archive. A half-written file never has its final name, and nothing is
/// overwritten. No source is removed before its copy is proven identical and is durable.
class VerifiedTransfer {
public:
    /// All must outlive the transfer. The root of the archive must stay on its device. If the device goes
    /// away, the remaining files fail, and nothing is written to the disk below its mount point. `journal`
    /// may be null; removals are then not recorded before they happen.
    VerifiedTransfer(FileSystem& fileSystem, const ArchiveHold& archive, RunJournal* journal)
        : fileSystem_(fileSystem), archive_(archive), journal_(journal), folders_(fileSystem) {}

    /// Transfers `item` to `destination` and returns the record with the outcome, which also describes
    /// failures. Blocks the calling thread. In a move, the new names and the record in the journal are
    /// durable before the source is removed. In a copy, the names wait for flushFolders().
    FileTransactionItem transferFile(const MediaItem& item, const FilePath& destination, OperationMode mode,
                                     TransferCancellationToken& token);

    /// Why the transfer of the last file failed. Absent when it did not fail.
    [[nodiscard]] const std::optional<TransferError>& lastError() const noexcept { return lastError_; }

    /// Sources of a move that stay in place because the system does not allow removing them. Their copies are
    /// in the archive and verified.
    struct KeptSources {
        std::int64_t count = 0;
        std::optional<FileError> first;
    };
    [[nodiscard]] const KeptSources& keptSources() const noexcept { return keptSources_; }

    /// Makes the names of the copies durable. Returns the folders that the device refused. Files in these may
    /// not survive a loss of power.
    std::vector<UnflushedFolder> flushFolders() { return folders_.flushAll(); }

private:
    TransferResult<void> bringIntoArchive(const MediaItem& item, OperationMode mode,
                                          TransferCancellationToken& token, FileTransactionItem& record);
    FileResult<void> createFolders(const FilePath& folder);
    TransferResult<void> compareWithExisting(const MediaItem& item, const CancellationCheck& cancelled,
                                             FileTransactionItem& record) const;
    TransferResult<void> proveCopy(const MediaItem& item, VerifiedCopy& copy,
                                   const CancellationCheck& cancelled, FileTransactionItem& record) const;
    TransferResult<std::string> sourceHash(const MediaItem& item, const CancellationCheck& cancelled) const;
    TransferResult<std::string> hash(const FilePath& path, const CancellationCheck& cancelled) const;
    bool isKept(const TransferError& error, FileTransactionItem& record);
    TransferResult<void> removeSource(HeldFile& source, const FilePath& destinationFolder,
                                      TransferCancellationToken& token, FileTransactionItem& record);

    FileSystem& fileSystem_;
    const ArchiveHold& archive_;
    RunJournal* journal_;
    FolderFlusher folders_;
    std::optional<TransferError> lastError_;
    KeptSources keptSources_;
    std::vector<FilePath> created_; ///< folders, for the file in hand
};

} // namespace lumeo
