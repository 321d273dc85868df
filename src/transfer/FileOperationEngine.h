#pragma once

#include "model/MediaItem.h"
#include "model/OrganizationPlan.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "transfer/OperationManifest.h"
#include "transfer/OperationProgress.h"
#include "transfer/RunPreparation.h"
#include "transfer/VerifiedTransfer.h"

#include "platform/Mutex.h"
#include <condition_variable>
#include <functional>
#include <memory>
#include <span>
#include <stop_token>

namespace lumeo {

/// Carries out one organization run, one file after another.
///
/// execute() blocks the thread it is called on; pause(), resume() and cancel() may be called from any
/// thread at any moment.
class FileOperationEngine {
public:
    using ProgressCallback = std::function<void(const OperationProgress&)>;

    /// Both must outlive the engine.
    FileOperationEngine(FileSystem& fileSystem, const Clock& clock)
        : fileSystem_(fileSystem), clock_(clock) {}

    /// Transfers `items` to their planned destinations and gives the finished journal, which `run` keeps on
    /// disk meanwhile. Never fails: what happens to a file stands in its record, and what cuts the run short,
    /// once no other file can succeed, in a notice. Where the archive's disk takes less than was known when
    /// they were planned, the items get places that it takes. `onProgress` is called on this thread. A
    /// cancel() from before the call has no effect; a stop requested of `stop` has, whenever it came.
    OperationManifest execute(PreparedRun& run, std::span<const MediaItem> items,
                              const OrganizationPlan& plan, const ProgressCallback& onProgress,
                              const std::stop_token& stop = {});

    /// Takes effect after the file in transfer.
    void pause();
    void resume();
    /// Stops the file in transfer at its next chunk; no further file is taken.
    void cancel();

private:
    void reset();
    bool mayTakeNextFile(const std::stop_token& stop);
    FileTransactionItem transfer(VerifiedTransfer& transfers, const MediaItem& item, OperationMode mode);
    bool isPaused();
    bool isCancelled();

    FileSystem& fileSystem_;
    const Clock& clock_;
    Mutex mutex_;
    std::condition_variable_any wake_;
    bool isPaused_ LUMEO_GUARDED_BY(mutex_) = false;
    bool isCancelled_ LUMEO_GUARDED_BY(mutex_) = false;
    std::shared_ptr<TransferCancellationToken> activeTransferToken_ LUMEO_GUARDED_BY(mutex_);
};

} // namespace lumeo
