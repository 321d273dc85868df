#pragma once

#include "model/MediaItem.h"
#include "model/OrganizationPlan.h"
#include "platform/FileSystem.h"
#include "transfer/OperationManifest.h"

#include <mutex>
#include <set>
#include <vector>

namespace lumeo {

/// Stops one file's transfer. Shared between the transfer and whoever cancels it; any thread may call.
class TransferCancellationToken {
public:
    void cancel();
    [[nodiscard]] bool isCancelled() const;

    /// Runs `removal` unless cancelled, and holds off cancel() while it runs: a cancel comes either
    /// before it, and prevents it, or after it. Gives whether it ran.
    template<class Removal>
    bool unlessCancelled(Removal&& removal) {
        const std::lock_guard guard(mutex_);
        if (cancelled_) {
            return false;
        }
        removal();
        return true;
    }

private:
    mutable std::mutex mutex_;
    bool cancelled_ = false; ///< guarded by mutex_
};

/// Brings one file into the archive: never a half-written file under its final name, nothing
/// overwritten, no source removed before its copy was proven identical and is durable.
class VerifiedTransfer {
public:
    /// `fileSystem` must outlive the transfer.
    explicit VerifiedTransfer(FileSystem& fileSystem) : fileSystem_(fileSystem) {}

    /// Transfers `item` to `destination` and tells the outcome; whatever goes wrong stands in the
    /// record. Blocks the calling thread. In a move, the names that were made are durable before the
    /// source is removed; in a copy they wait for flushFolders().
    FileTransactionItem transferFile(const MediaItem& item, const FilePath& destination, OperationMode mode,
                                     TransferCancellationToken& token);

    struct UnflushedFolder {
        FilePath folder;
        FileError error;
    };

    /// Makes the names that copies made durable. Gives the folders where the device refused: what was
    /// put there may not outlive a loss of power.
    std::vector<UnflushedFolder> flushFolders();

private:
    FileSystem& fileSystem_;
    std::set<FilePath> foldersToFlush_;
};

} // namespace lumeo
