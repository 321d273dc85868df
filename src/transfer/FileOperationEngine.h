#pragma once

#include "model/MediaItem.h"
#include "model/OrganizationPlan.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/Mutex.h"
#include "transfer/OperationManifest.h"
#include "transfer/OperationProgress.h"
#include "transfer/RunPreparation.h"
#include "transfer/VerifiedTransfer.h"

#include <condition_variable>
#include <functional>
#include <memory>
#include <span>
#include <stop_token>

namespace lumeo {

/// Executes one organization run, one file after another.
///
/// execute() blocks the thread it is called on. pause(), resume() and cancel() may be called from any thread
/// at any moment.
class FileOperationEngine {
public:
    using ProgressCallback = std::function<void(const OperationProgress&)>;

    /// Both must outlive the engine.
    FileOperationEngine(FileSystem& fileSystem, const Clock& clock)
        : fileSystem_(fileSystem), clock_(clock) {}

    /// Transfers `items` to their planned destinations and returns the finished journal. During the run,
    /// `run` keeps the journal on disk. This never fails: a file's failure is in its record. If no other file
    /// can succeed, the run ends early, and a notice tells why. If the archive's disk accepts less than was
    /// known when the items were planned, they get destinations that it accepts. `onProgress` is called on
    /// this thread. A cancel() before the call has no effect. A stop request on `stop` always has an effect.
    OperationManifest execute(PreparedRun& run, std::span<const MediaItem> items,
                              const OrganizationPlan& plan, const ProgressCallback& onProgress,
                              const std::stop_token& stop = {});

    /// Takes effect after the current file.
    void pause();
    void resume();
    /// Stops the current file at its next chunk. No other file is started.
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
