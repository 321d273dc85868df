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

/// Stops one file's transfer. Shared between the transfer and whoever cancels it; any thread may call.
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

    /// Runs `removal` unless cancelled, and holds off cancel() while it runs: a cancel comes either
    /// before it, and prevents it, or after it. Gives whether it ran.
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

/// Brings one file into the archive: never a half-written file under its final name, nothing
/// overwritten, no source removed before its copy was proven identical and is durable.
class VerifiedTransfer {
public:
    /// All must outlive the transfer. The root of the archive must stay on its device: when that goes away
    /// under its path, the files that are left fail, and nothing is put on the disk that comes to light
    /// there. `journal` may be null: then removals are not written down before they are made.
    VerifiedTransfer(FileSystem& fileSystem, const ArchiveHold& archive, RunJournal* journal)
        : fileSystem_(fileSystem), archive_(archive), journal_(journal), folders_(fileSystem) {}

    /// Transfers `item` to `destination` and tells the outcome; whatever goes wrong stands in the
    /// record. Blocks the calling thread. In a move, the names that were made and the record in the journal
    /// are durable before the source is removed; in a copy the names wait for flushFolders().
    FileTransactionItem transferFile(const MediaItem& item, const FilePath& destination, OperationMode mode,
                                     TransferCancellationToken& token);

    /// Why the transfer of the last file failed; absent when it did not.
    [[nodiscard]] const std::optional<TransferError>& lastError() const noexcept { return lastError_; }

    /// Sources of a move that stay where they are, since the system lets nobody remove them. Their copies are
    /// in the archive, verified.
    struct KeptSources {
        std::int64_t count = 0;
        std::optional<FileError> first;
    };
    [[nodiscard]] const KeptSources& keptSources() const noexcept { return keptSources_; }

    /// Makes the names that copies made durable. Gives the folders where the device refused: what was
    /// put there may not outlive a loss of power.
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
