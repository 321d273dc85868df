#include "app/AppState.h"
#include "app/Preferences.h"
#include "dates/FilesystemDates.h"
#include "dates/TwinDates.h"
#include "hashing/DuplicateDetector.h"
#include "planning/DestinationPlanner.h"

#include <utility>

// The part of the state that works on the catalogue: the jobs on separate threads, and the handling of their
// results.
namespace lumeo {
namespace {

void date(std::vector<MediaItem>& items, UnknownDatePolicy policy, const Clock& clock) {
    if (policy == UnknownDatePolicy::useFilesystemDate) {
        FilesystemDates::apply(items, clock);
    } else {
        FilesystemDates::remove(items);
    }
}

} // namespace

std::vector<FilePath> AppState::sourceRoots() const {
    std::vector<FilePath> roots;
    roots.reserve(sources_.size());
    for (const SourceVolume& source : sources_) {
        roots.push_back(source.url);
    }
    return roots;
}

void AppState::startScan() {
    if (sources_.empty() || isChangingFiles() || isRunEnding()) {
        return;
    }
    scan_.drop();
    unreadable_.clear();
    replaceCatalogue({});
    lookAtSources();
    if (operationProgress_.isCancelled) { // for files that are no longer in the catalogue
        change(operationProgress_, {}, &AppState::operationProgressChanged);
    }
    scanProgress_ = {};
    emit scanProgressChanged();
    change(isScanning_, true, &AppState::isScanningChanged);
    goTo(WizardStep::scanResults);

    const auto scanner =
        std::make_shared<MediaScanner>(environment_.fileSystem, environment_.volumes, environment_.clock);
    scanPause_ = std::make_shared<PauseSwitch<MediaScanner>>(scanner);
    scan_.start(
        [this, scanner, pause = scanPause_, roots = sourceRoots(),
         policy = organizationPlan_.unknownDatePolicy](const std::stop_token& stop, const auto& report) {
            constexpr std::size_t mostNamed = 1000;
            Scanned scanned{.items = {}, .datedUnder = policy};
            scanned.items = scanner->scan(
                roots,
                [&](const ScanProgress& progress) {
                    pause->hold();
                    report(progress);
                },
                stop,
                [&](const FileError& error) {
                    if (scanned.unreadable.size() < mostNamed) {
                        scanned.unreadable.push_back(error);
                    }
                });
            date(scanned.items, policy, environment_.clock);
            return scanned;
        },
        [this](ScanProgress progress) {
            progress.isPaused = scanProgress_.isPaused;
            scanProgress_ = std::move(progress);
            emit scanProgressChanged();
        },
        [this](Scanned scanned) { finishScan(std::move(scanned)); });
}

void AppState::finishScan(Scanned scanned) {
    showScanPaused(false);
    unreadable_ = std::move(scanned.unreadable);
    replaceCatalogue(std::move(scanned.items));
    change(isScanning_, false, &AppState::isScanningChanged);
    complete({WizardStep::sources, WizardStep::scanResults});
    if (scanned.datedUnder != organizationPlan_.unknownDatePolicy) {
        reviseItems();
    }
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
        scan_.stop();
        showScanPaused(false);
        change(isScanning_, false, &AppState::isScanningChanged);
        goTo(WizardStep::sources);
    }
}

void AppState::runDuplicateDetection() {
    if (scannedItems_->empty() || isDetectingDuplicates()) {
        return;
    }
    detection_.start(
        [this, items = scannedItems_](const std::stop_token& stop) {
            return DuplicateDetector(environment_.fileSystem).detectDuplicates(*items, stop);
        },
        [this, analyzed = scannedItems_](std::vector<MediaItem> found) {
            isAnalyzed_ = !detection_.stopSource().stop_requested();
            finishDuplicateDetection(analyzed, std::move(found));
            emit isDetectingDuplicatesChanged();
        });
    emit isDetectingDuplicatesChanged();
}

void AppState::stopDuplicateDetection() {
    detection_.stop();
}

void AppState::finishDuplicateDetection(const Items& analyzed, std::vector<MediaItem> found) {
    if (analyzed != scannedItems_) {
        // The items were dated or planned again in the meantime, so only the marks are copied.
        std::vector<MediaItem> items = *scannedItems_;
        for (std::size_t index = 0; index < items.size(); ++index) {
            if (found[index].sha256Hash) {
                items[index].sha256Hash = std::move(found[index].sha256Hash);
            }
            items[index].exactDuplicateGroupID = found[index].exactDuplicateGroupID;
        }
        found = std::move(items);
    }
    TwinDates::apply(found);
    replaceItems(std::move(found));
    outdatePlan();
}

/// The items' destinations may be wrong now. If they are visible, they are planned again at once.
void AppState::outdatePlan() {
    isPlanCurrent_ = false;
    if (isPlanning() || currentStep_ == WizardStep::preview) {
        startPlanning();
    }
}

void AppState::calculatePlannedDestinations() {
    if (!organizationPlan_.destinationURL) {
        return;
    }
    cancelPlanning();
    std::vector<MediaItem> items = *scannedItems_;
    date(items, organizationPlan_.unknownDatePolicy, environment_.clock);
    DestinationPlanner::plan(items, organizationPlan_, environment_.fileSystem);
    isPlanCurrent_ = true;
    replaceItems(std::move(items));
}

void AppState::startPlanning() {
    if (organizationPlan_.destinationURL && !isChangingFiles()) {
        reviseItems();
    }
}

/// Dates the items under the current policy, and plans their destinations if the plan has a destination.
void AppState::reviseItems() {
    planningProgress_ = {.plannedCount = 0, .totalCount = totalFilesCount()};
    emit planningProgressChanged();
    planning_.start(
        [this, items = scannedItems_, plan = organizationPlan_](const std::stop_token& stop,
                                                                const auto& report) {
            std::vector<MediaItem> revised = *items;
            date(revised, plan.unknownDatePolicy, environment_.clock);
            if (plan.destinationURL) {
                DestinationPlanner::plan(revised, plan, environment_.fileSystem, stop, report);
            }
            return revised;
        },
        [this](std::size_t plannedCount) {
            planningProgress_.plannedCount = static_cast<std::int64_t>(plannedCount);
            emit planningProgressChanged();
        },
        [this, isPlanned = organizationPlan_.destinationURL.has_value()](std::vector<MediaItem> revised) {
            isPlanCurrent_ = isPlanned;
            replaceItems(std::move(revised));
            endPlanning(true);
        });
    emit isPlanningChanged();
}

void AppState::cancelPlanning() {
    if (isPlanning()) {
        planning_.drop();
        endPlanning(false);
    }
}

void AppState::endPlanning(bool isComplete) {
    emit isPlanningChanged();
    emit planningFinished(isComplete);
    if (!isComplete) {
        takeStartBack();
    }
    startAwaitedOperation();
}

} // namespace lumeo
