#include "app/AppState.h"
#include "app/Preferences.h"

#include <algorithm>
#include <utility>

// The part of the state that works on files: the run and its undo.
namespace lumeo {
namespace {

using ManifestOrReason = Result<std::shared_ptr<const OperationManifest>, std::string>;

ManifestOrReason readManifest(const FileSystem& fileSystem, const FilePath& journal) {
    Result<ReadJournal, std::string> read = readJournal(fileSystem, journal);
    if (!read) {
        return std::move(read).error();
    }
    return std::make_shared<const OperationManifest>(std::move(read->manifest));
}

} // namespace

void AppState::startOperation() {
    if (scannedItems_->empty() || !organizationPlan_.destinationURL || isChangingFiles()) {
        return;
    }
    change(isStartingOperation_, true, &AppState::isStartingOperationChanged);
    if (!isPlanCurrent_ && !isPlanning()) {
        startPlanning();
    }
    startAwaitedOperation();
}

/// A run waits for the plan and for the end of a cancelled run.
bool AppState::canRun() const {
    return isStartingOperation_ && isPlanCurrent_ && !isPlanning() && !isRunEnding();
}

void AppState::takeStartBack() {
    change(isStartingOperation_, false, &AppState::isStartingOperationChanged);
}

void AppState::startAwaitedOperation() {
    if (canRun()) {
        measureDestination([this](const MeasuredDestination& now) {
            // The destination may have been chosen a moment ago, and this is then the first look at it.
            destinationDevice_ = destinationDevice_ ? destinationDevice_ : now.device;
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
    change(runRefusal_, {}, &AppState::runRefusalChanged);
    if (isRefused) {
        goTo(WizardStep::preview);
        takeStartBack();
    } else {
        prepareAndRun();
    }
}

void AppState::prepareAndRun() {
    using Prepared = Result<PreparedRun, RunRefusal>;
    jobs_.start(
        [this, plan = organizationPlan_, roots = sourceRoots(), files = totalFilesCount(),
         device = destinationDevice_](const std::stop_token& /*stop*/) {
            return prepareRun(environment_.fileSystem, environment_.clock, environment_.journals, plan, roots,
                              files, device);
        },
        [this, catalogue = scannedItems_](Prepared prepared) {
            if (!canRun() || catalogue != scannedItems_) {
                return; // the start was cancelled in the meantime
            }
            if (prepared) {
                runOperation(std::make_shared<PreparedRun>(*std::move(prepared)));
            } else {
                refuse(prepared.error());
            }
            takeStartBack();
        });
}

void AppState::refuse(RunRefusal refusal) {
    change(runRefusal_, std::optional(std::move(refusal)), &AppState::runRefusalChanged);
    goTo(WizardStep::preview);
}

void AppState::runOperation(const std::shared_ptr<PreparedRun>& prepared) {
    const auto engine = std::make_shared<FileOperationEngine>(environment_.fileSystem, environment_.clock);
    operationPause_ = std::make_shared<PauseSwitch<FileOperationEngine>>(engine);
    journalProblem_ = prepared->journalProblem;
    activeJournal_ = prepared->journal ? prepared->journal->path() : FilePath();
    change(isProcessing_, true, &AppState::isProcessingChanged);
    change(activeManifest_, {}, &AppState::activeManifestChanged);
    change(undoResult_, {}, &AppState::undoResultChanged);
    goTo(WizardStep::processing);

    operation_.start(
        [engine, prepared, pause = operationPause_, items = scannedItems_,
         plan = organizationPlan_](const std::stop_token& stop, const auto& report) {
            // With the stop alone, the current file would be finished first, even if it is 100 GB long.
            const std::stop_callback cancelling(stop, [&engine] { engine->cancel(); });
            // Releases the archive before the end is announced, so that the next run finds it free.
            PreparedRun run = std::move(*prepared);
            return std::make_shared<const OperationManifest>(engine->execute(
                run, *items, plan,
                [&](const OperationProgress& progress) {
                    pause->hold();
                    report(progress);
                },
                stop));
        },
        [this](OperationProgress progress) { showProgress(std::move(progress)); },
        [this](const std::shared_ptr<const OperationManifest>& journal) { finishOperation(journal); });
}

void AppState::showProgress(OperationProgress progress) {
    if (operationPause_ == nullptr) {
        return; // from a cancelled run, after which the wizard has started again
    }
    progress.isPaused = operationProgress_.isPaused && !progress.isCompleted;
    progress.isCancelled = progress.isCancelled || operationProgress_.isCancelled;
    operationProgress_ = std::move(progress);
    emit operationProgressChanged();
}

void AppState::finishOperation(const std::shared_ptr<const OperationManifest>& journal) {
    // A cancel was shown at once when it was requested.
    const bool isCancelled = !isProcessing_;
    operationPause_ = nullptr;
    if (!isCancelled) {
        change(isProcessing_, false, &AppState::isProcessingChanged);
        change(activeManifest_, journal, &AppState::activeManifestChanged);
        environment_.preferences.setLastOperationSummary(
            LastOperationSummary::of(*journal, environment_.clock.now()));
        emit lastOperationSummaryChanged();
        isPlanCurrent_ = false; // the archive has changed
        complete({WizardStep::preview, WizardStep::processing, WizardStep::report});
        goTo(WizardStep::report);
    }
    readRecentRuns();
    emit operationFinished(journal, isCancelled);
    startAwaitedOperation();
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
    operationProgress_.isCancelled = true;
    operationProgress_.isPaused = false;
    emit operationProgressChanged();
    change(isProcessing_, false, &AppState::isProcessingChanged);
    goTo(WizardStep::preview);
    // This waits while a source is being removed, which can take long on a slow disk.
    jobs_.start(
        [stop = operation_.stopSource()](const std::stop_token&) mutable { return stop.request_stop(); },
        [](bool) {});
}

void AppState::startUndo() {
    if (activeManifest_) {
        takeBack([manifest = activeManifest_] { return ManifestOrReason(manifest); }, activeJournal_);
    }
}

void AppState::startUndo(const FilePath& journal) {
    takeBack([this, journal] { return readManifest(environment_.fileSystem, journal); }, journal);
}

void AppState::takeBack(std::function<ManifestOrReason()> read, const FilePath& journal) {
    if (isChangingFiles() || isRunEnding()) {
        return;
    }
    takeStartBack();
    undoneJournal_ = journal;
    undoRefusal_.clear();
    change(undoResult_, {}, &AppState::undoResultChanged);
    undoProgress_ = {};
    emit undoProgressChanged();
    undo_.start(
        [this, read = std::move(read), journal](const std::stop_token& stop,
                                                const auto& report) -> Result<UndoResult, std::string> {
            const ManifestOrReason run = read();
            if (!run) {
                return run.error();
            }
            const Result<UndoResult, RunRefusal> undone =
                lumeo::takeBack(environment_.fileSystem, **run, environment_.journals, journal, report, stop);
            return undone ? Result<UndoResult, std::string>(*undone) : undone.error().sentence;
        },
        [this](UndoProgress progress) {
            undoProgress_ = std::move(progress);
            emit undoProgressChanged();
        },
        [this](Result<UndoResult, std::string> result) { finishUndo(std::move(result)); });
    emit isUndoingChanged();
}

void AppState::considerUndo() {
    if (activeManifest_) {
        consider([manifest = activeManifest_] { return ManifestOrReason(manifest); });
    }
}

void AppState::considerUndo(const FilePath& journal) {
    consider([this, journal] { return readManifest(environment_.fileSystem, journal); });
}

void AppState::consider(std::function<ManifestOrReason()> read) {
    change(undoForecast_, {}, &AppState::undoForecastChanged);
    consideration_.start(
        [this, read = std::move(read)](const std::stop_token& stop) -> std::optional<UndoForecast> {
            const ManifestOrReason run = read();
            return run ? std::optional(UndoEngine(environment_.fileSystem).forecast(**run, stop))
                       : std::nullopt;
        },
        [this](const std::optional<UndoForecast>& forecast) {
            change(undoForecast_, forecast, &AppState::undoForecastChanged);
        });
}

void AppState::dismissRun(const FilePath& journal) {
    jobs_.start(
        [this, journal](const std::stop_token&) { return environment_.journals.dismiss(journal).hasValue(); },
        [this](bool) { readRecentRuns(); });
}

void AppState::readRecentRuns() {
    recentRunsReading_.start(
        [this](const std::stop_token& /*stop*/) {
            RecentRuns recent;
            const std::vector<RunEntry> runs = environment_.journals.list();
            if (!runs.empty() && runs.front().canBeUndone() && !runs.front().isDismissed &&
                runs.front().state != RunState::finished) {
                recent.interrupted = runs.front();
            }
            const auto completed = std::ranges::find_if(runs, &RunEntry::isComplete);
            if (completed != runs.end() && completed->canBeUndone()) {
                recent.completed = *completed;
            }
            return recent;
        },
        [this](RecentRuns recent) { change(recentRuns_, std::move(recent), &AppState::recentRunsChanged); });
}

void AppState::stopUndo() {
    undo_.stop();
}

void AppState::finishUndo(Result<UndoResult, std::string> result) {
    if (result) {
        undoResult_ = *std::move(result);
    } else {
        undoRefusal_ = result.error();
    }
    emit isUndoingChanged();
    emit undoResultChanged();
    outdatePlan(); // the archive has changed
    readRecentRuns();
}

} // namespace lumeo
