#include "app/AppState.h"
#include "app/Preferences.h"

#include <utility>

// The state's work on files: the run, and the way back.
namespace lumeo {

void AppState::startOperation() {
    if (scannedItems_->empty() || !organizationPlan_.destinationURL || isChangingFiles()) {
        return;
    }
    change(isStartingOperation_, true, &AppState::isStartingOperationChanged);
    if (!isPlanCurrent_ && !isPlanning_) {
        startPlanning();
    }
    startAwaitedOperation();
}

/// A run waits for the plan and for a cancelled run that is yet to end.
bool AppState::canRun() const {
    return isStartingOperation_ && isPlanCurrent_ && !isPlanning_ && !isRunEnding_;
}

void AppState::takeStartBack() {
    change(isStartingOperation_, false, &AppState::isStartingOperationChanged);
}

void AppState::startAwaitedOperation() {
    if (canRun()) {
        measureDestination([this] {
            if (canRun()) {
                runOrRefuse();
            }
        });
    }
}

void AppState::runOrRefuse() {
    operationProgress_ = {};
    const std::optional<std::int64_t> free = destinationVolume_->freeSpaceBytes;
    const bool isRefused = free && requiredOutputSizeBytes() >= *free;
    operationProgress_.errorsCount = isRefused ? 1 : 0;
    emit operationProgressChanged();
    if (isRefused) {
        goTo(WizardStep::preview);
    } else {
        runOperation();
    }
    takeStartBack();
}

void AppState::runOperation() {
    const auto engine = std::make_shared<FileOperationEngine>(environment_.fileSystem, environment_.clock);
    const auto latest = std::make_shared<LatestValue<OperationProgress>>();
    operationPause_ = std::make_shared<PauseSwitch<FileOperationEngine>>(engine);
    change(isProcessing_, true, &AppState::isProcessingChanged);
    change(activeManifest_, {}, &AppState::activeManifestChanged);
    change(undoResult_, {}, &AppState::undoResultChanged);
    goTo(WizardStep::processing);

    const auto show = [this, pause = operationPause_](OperationProgress progress) {
        if (pause == operationPause_) {
            progress.isPaused = operationProgress_.isPaused && !progress.isCompleted;
            progress.isCancelled = progress.isCancelled || operationProgress_.isCancelled;
            operationProgress_ = std::move(progress);
            emit operationProgressChanged();
        }
    };
    operationStop_ = jobs_.start(
        [this, engine, latest, show, pause = operationPause_, items = scannedItems_, plan = organizationPlan_,
         roots = sourceRoots()](const std::stop_token& stop) {
            // The stop alone would let the file in transfer finish first, be it 100 GB long.
            const std::stop_callback cancelling(stop, [&engine] { engine->cancel(); });
            return std::make_shared<const OperationManifest>(engine->execute(
                *items, plan, roots,
                [&](const OperationProgress& progress) {
                    pause->hold();
                    latest->post(*this, progress, show);
                },
                stop));
        },
        [this](const std::shared_ptr<const OperationManifest>& journal) { finishOperation(journal); });
}

void AppState::finishOperation(const std::shared_ptr<const OperationManifest>& journal) {
    // What a cancel is to show was shown when it was asked for.
    const bool isCancelled = std::exchange(isRunEnding_, false);
    operationPause_ = nullptr;
    if (!isCancelled) {
        change(isProcessing_, false, &AppState::isProcessingChanged);
        change(activeManifest_, journal, &AppState::activeManifestChanged);
        recordLastOperationSummary(*journal);
        isPlanCurrent_ = false; // the archive is another one now
        complete({WizardStep::preview, WizardStep::processing, WizardStep::report});
        goTo(WizardStep::report);
    }
    emit operationFinished(journal, isCancelled);
    startAwaitedOperation();
}

void AppState::recordLastOperationSummary(const OperationManifest& manifest) {
    lastOperationSummary_ = LastOperationSummary::of(manifest, environment_.clock.now());
    emit lastOperationSummaryChanged();
    environment_.preferences.setLastOperationSummary(*lastOperationSummary_);
}

void AppState::pauseOperation() {
    setOperationPaused(true);
}

void AppState::resumeOperation() {
    setOperationPaused(false);
}

void AppState::setOperationPaused(bool paused) {
    if (isProcessing_ && operationProgress_.isPaused != paused) {
        operationProgress_.isPaused = paused;
        emit operationProgressChanged();
        operationPause_->set(paused);
    }
}

void AppState::cancelOperation() {
    takeStartBack();
    if (!isProcessing_) {
        return;
    }
    isRunEnding_ = true;
    operationProgress_.isCancelled = true;
    operationProgress_.isPaused = false;
    emit operationProgressChanged();
    change(isProcessing_, false, &AppState::isProcessingChanged);
    goTo(WizardStep::preview);
    // Has to wait while a source is being removed, which a slow disk takes its time for.
    jobs_.start([stop = operationStop_](const std::stop_token&) mutable { return stop.request_stop(); },
                [](bool) {});
}

void AppState::startUndo() {
    if (!activeManifest_ || isChangingFiles()) {
        return;
    }
    takeStartBack();
    change(undoResult_, {}, &AppState::undoResultChanged);
    undoProgress_ = {};
    emit undoProgressChanged();
    change(isUndoing_, true, &AppState::isUndoingChanged);
    const auto latest = std::make_shared<LatestValue<UndoProgress>>();
    const auto show = [this](UndoProgress progress) {
        undoProgress_ = std::move(progress);
        emit undoProgressChanged();
    };
    undoStop_ = jobs_.start(
        [this, latest, show, journal = activeManifest_](const std::stop_token& stop) {
            return UndoEngine(environment_.fileSystem)
                .rollback(
                    *journal, [&](const UndoProgress& progress) { latest->post(*this, progress, show); },
                    stop);
        },
        [this](UndoResult result) { finishUndo(std::move(result)); });
}

void AppState::stopUndo() {
    undoStop_.request_stop();
}

void AppState::finishUndo(UndoResult result) {
    undoResult_ = std::move(result);
    change(isUndoing_, false, &AppState::isUndoingChanged);
    emit undoResultChanged();
    outdatePlan(); // the archive is another one now
}

} // namespace lumeo
