#include "app/AppState.h"
#include "app/Preferences.h"
#include "dates/FilesystemDates.h"
#include "hashing/DuplicateDetector.h"
#include "planning/DestinationPlanner.h"

#include <utility>

// The state's long work: what runs on threads of its own, and how its results come back.
namespace lumeo {

std::vector<FilePath> AppState::sourceRoots() const {
    std::vector<FilePath> roots;
    roots.reserve(sources_.size());
    for (const SourceVolume& source : sources_) {
        roots.push_back(source.url);
    }
    return roots;
}

void AppState::startScan() {
    if (sources_.empty()) {
        return;
    }
    scanStop_.request_stop();
    const int number = ++scanNumber_;
    replaceCatalogue({});
    scanProgress_ = {};
    emit scanProgressChanged();
    change(isScanning_, true, &AppState::isScanningChanged);
    goTo(WizardStep::scanResults);

    const auto scanner = std::make_shared<MediaScanner>(environment_.fileSystem, environment_.clock);
    const auto latest = std::make_shared<LatestValue<ScanProgress>>();
    scanPause_ = std::make_shared<PauseSwitch<MediaScanner>>(scanner);
    const auto show = [this, number](ScanProgress progress) {
        if (number == scanNumber_) {
            progress.isPaused = scanProgress_.isPaused;
            scanProgress_ = std::move(progress);
            emit scanProgressChanged();
        }
    };
    scanStop_ = jobs_.start(
        [this, scanner, latest, show, pause = scanPause_,
         roots = sourceRoots()](const std::stop_token& stop) {
            return scanner->scan(
                roots,
                [&](const ScanProgress& progress) {
                    pause->hold();
                    latest->post(*this, progress, show);
                },
                stop);
        },
        [this, number](std::vector<MediaItem> items) {
            if (number == scanNumber_) {
                finishScan(std::move(items));
            }
        });
}

void AppState::finishScan(std::vector<MediaItem> items) {
    showScanPaused(false);
    if (organizationPlan_.unknownDatePolicy == UnknownDatePolicy::useFilesystemDate) {
        FilesystemDates::apply(items, environment_.clock);
    }
    replaceCatalogue(std::move(items));
    change(isScanning_, false, &AppState::isScanningChanged);
    complete({WizardStep::sources, WizardStep::scanResults});
    emit scanFinished();
}

void AppState::pauseScan() {
    setScanPaused(true);
}

void AppState::resumeScan() {
    setScanPaused(false);
}

void AppState::setScanPaused(bool paused) {
    if (isScanning_ && scanProgress_.isPaused != paused) {
        scanPause_->set(paused);
        showScanPaused(paused);
    }
}

void AppState::showScanPaused(bool paused) {
    if (scanProgress_.isPaused != paused) {
        scanProgress_.isPaused = paused;
        emit scanProgressChanged();
    }
}

void AppState::cancelScan() {
    if (isScanning_) {
        scanStop_.request_stop();
        showScanPaused(false);
        change(isScanning_, false, &AppState::isScanningChanged);
        goTo(WizardStep::sources);
    }
}

void AppState::runDuplicateDetection() {
    if (scannedItems_->empty() || isDetectingDuplicates_) {
        return;
    }
    change(isDetectingDuplicates_, true, &AppState::isDetectingDuplicatesChanged);
    detectionStop_ = jobs_.start(
        [this, items = scannedItems_](const std::stop_token& stop) {
            return DuplicateDetector(environment_.fileSystem).detectDuplicates(*items, stop);
        },
        [this, number = catalogueNumber_, analyzed = scannedItems_](std::vector<MediaItem> found) {
            if (number == catalogueNumber_) {
                finishDuplicateDetection(analyzed, std::move(found));
                change(isDetectingDuplicates_, false, &AppState::isDetectingDuplicatesChanged);
            }
        });
}

void AppState::stopDuplicateDetection() {
    detectionStop_.request_stop();
}

void AppState::finishDuplicateDetection(const Items& analyzed, std::vector<MediaItem> found) {
    if (analyzed != scannedItems_) {
        // Dated or planned anew meanwhile: only the marks are taken over.
        std::vector<MediaItem> items = *scannedItems_;
        for (std::size_t index = 0; index < items.size(); ++index) {
            if (found[index].sha256Hash) {
                items[index].sha256Hash = std::move(found[index].sha256Hash);
            }
            items[index].exactDuplicateGroupID = found[index].exactDuplicateGroupID;
        }
        found = std::move(items);
    }
    replaceItems(std::move(found));
    outdatePlan();
}

/// The places that the items have may no longer be right.
void AppState::outdatePlan() {
    isPlanCurrent_ = false;
    if (isPlanning_) {
        startPlanning();
    }
}

void AppState::calculatePlannedDestinations() {
    if (!organizationPlan_.destinationURL) {
        return;
    }
    cancelPlanning();
    std::vector<MediaItem> items = *scannedItems_;
    DestinationPlanner::plan(items, organizationPlan_, environment_.fileSystem);
    isPlanCurrent_ = true;
    replaceItems(std::move(items));
}

void AppState::startPlanning() {
    if (!organizationPlan_.destinationURL) {
        return;
    }
    planningStop_.request_stop();
    const int number = ++planningNumber_;
    planningProgress_ = {.plannedCount = 0, .totalCount = totalFilesCount()};
    emit planningProgressChanged();
    change(isPlanning_, true, &AppState::isPlanningChanged);

    const auto latest = std::make_shared<LatestValue<std::size_t>>();
    const auto show = [this, number](std::size_t plannedCount) {
        if (number == planningNumber_) {
            planningProgress_.plannedCount = static_cast<std::int64_t>(plannedCount);
            emit planningProgressChanged();
        }
    };
    planningStop_ = jobs_.start(
        [this, latest, show, items = scannedItems_, plan = organizationPlan_](const std::stop_token& stop) {
            std::vector<MediaItem> planned = *items;
            DestinationPlanner::plan(
                planned, plan, environment_.fileSystem, stop,
                [&](std::size_t plannedCount) { latest->post(*this, plannedCount, show); });
            return planned;
        },
        [this, number](std::vector<MediaItem> planned) {
            if (number == planningNumber_) {
                isPlanCurrent_ = true;
                replaceItems(std::move(planned));
                endPlanning(true);
            }
        });
}

void AppState::cancelPlanning() {
    if (isPlanning_) {
        planningStop_.request_stop();
        ++planningNumber_;
        endPlanning(false);
    }
}

void AppState::endPlanning(bool isComplete) {
    change(isPlanning_, false, &AppState::isPlanningChanged);
    emit planningFinished(isComplete);
    if (!isComplete) {
        operationAwaits_ = false;
    }
    startAwaitedOperation();
}

void AppState::startOperation() {
    if (scannedItems_->empty() || !organizationPlan_.destinationURL || isProcessing_) {
        return;
    }
    operationAwaits_ = true;
    if (!isPlanCurrent_ && !isPlanning_) {
        startPlanning();
    }
    startAwaitedOperation();
}

void AppState::startAwaitedOperation() {
    if (!operationAwaits_ || !isPlanCurrent_ || isPlanning_ || isRunEnding_) {
        return;
    }
    operationAwaits_ = false;
    destinationVolume_ = measureDestination();
    emit destinationVolumeChanged();
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
}

void AppState::runOperation() {
    change(isProcessing_, true, &AppState::isProcessingChanged);
    change(activeManifest_, {}, &AppState::activeManifestChanged);
    goTo(WizardStep::processing);

    const auto engine = std::make_shared<FileOperationEngine>(environment_.fileSystem, environment_.clock);
    const auto latest = std::make_shared<LatestValue<OperationProgress>>();
    operationPause_ = std::make_shared<PauseSwitch<FileOperationEngine>>(engine);
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
        complete({WizardStep::preview, WizardStep::processing});
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
    operationAwaits_ = false;
    if (!isProcessing_) {
        return;
    }
    isRunEnding_ = true;
    operationProgress_.isCancelled = true;
    operationProgress_.isPaused = false;
    emit operationProgressChanged();
    change(isProcessing_, false, &AppState::isProcessingChanged);
    goTo(WizardStep::preview);
    operationStop_.request_stop();
}

} // namespace lumeo
