#include "app/AppState.h"
#include "app/Preferences.h"
#include "dates/FilesystemDates.h"
#include "hashing/DuplicateDetector.h"
#include "planning/DestinationPlanner.h"

#include <utility>

// The state's work on the catalogue: what runs on threads of its own, and how its results come back.
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
    if (sources_.empty() || isChangingFiles() || isRunEnding_) {
        return;
    }
    scanStop_.request_stop();
    const int number = ++scanNumber_;
    replaceCatalogue({});
    scanProgress_ = {};
    emit scanProgressChanged();
    change(isScanning_, true, &AppState::isScanningChanged);
    goTo(WizardStep::scanResults);

    const auto scanner =
        std::make_shared<MediaScanner>(environment_.fileSystem, environment_.volumes, environment_.clock);
    const auto latest = std::make_shared<LatestValue<ScanProgress>>();
    scanPause_ = std::make_shared<PauseSwitch<MediaScanner>>(scanner);
    const auto show = [this, number](ScanProgress progress) {
        if (number == scanNumber_) {
            progress.isPaused = scanProgress_.isPaused;
            scanProgress_ = std::move(progress);
            emit scanProgressChanged();
        }
    };
    const UnknownDatePolicy policy = organizationPlan_.unknownDatePolicy;
    scanStop_ = jobs_.start(
        [this, scanner, latest, show, pause = scanPause_, roots = sourceRoots(),
         policy](const std::stop_token& stop) {
            std::vector<MediaItem> items = scanner->scan(
                roots,
                [&](const ScanProgress& progress) {
                    pause->hold();
                    latest->post(*this, progress, show);
                },
                stop);
            date(items, policy, environment_.clock);
            return items;
        },
        [this, number, policy](std::vector<MediaItem> items) {
            if (number == scanNumber_) {
                finishScan(std::move(items), policy);
            }
        });
}

void AppState::finishScan(std::vector<MediaItem> items, UnknownDatePolicy datedUnder) {
    showScanPaused(false);
    replaceCatalogue(std::move(items));
    change(isScanning_, false, &AppState::isScanningChanged);
    complete({WizardStep::sources, WizardStep::scanResults});
    if (datedUnder != organizationPlan_.unknownDatePolicy) {
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

/// The places that the items have may no longer be right; where they are shown they are made right.
void AppState::outdatePlan() {
    isPlanCurrent_ = false;
    if (isPlanning_ || currentStep_ == WizardStep::preview) {
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

/// Dates the items under the present policy, and gives them their places if there is a destination.
void AppState::reviseItems() {
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
            std::vector<MediaItem> revised = *items;
            date(revised, plan.unknownDatePolicy, environment_.clock);
            if (plan.destinationURL) {
                DestinationPlanner::plan(
                    revised, plan, environment_.fileSystem, stop,
                    [&](std::size_t plannedCount) { latest->post(*this, plannedCount, show); });
            }
            return revised;
        },
        [this, number,
         isPlanned = organizationPlan_.destinationURL.has_value()](std::vector<MediaItem> revised) {
            if (number == planningNumber_) {
                isPlanCurrent_ = isPlanned;
                replaceItems(std::move(revised));
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
        takeStartBack();
    }
    startAwaitedOperation();
}

} // namespace lumeo
