#include "ui/models/ScanModel.h"

#include "app/AppState.h"
#include "l10n/LocalizationManager.h"

#include <QClipboard>
#include <QGuiApplication>

namespace lumeo {

ScanModel::ScanModel(AppState& state, const LocalizationManager& localization, QObject* parent)
    : QObject(parent), state_(state), localization_(localization) {
    connect(&state_, &AppState::isScanningChanged, this, &ScanModel::followScan);
    connect(&state_, &AppState::scanProgressChanged, this, &ScanModel::showCounters);
    connect(&state_, &AppState::isDetectingDuplicatesChanged, this, &ScanModel::isAnalyzingChanged);
    connect(&state_, &AppState::scannedItemsChanged, this, &ScanModel::count);
    connect(&state_, &AppState::currentStepChanged, this, &ScanModel::count);
    connect(&localization_, &LocalizationManager::currentLanguageChanged, this, &ScanModel::showFindings);
    showCounters();
    count();
}

bool ScanModel::isScanning() const {
    return state_.isScanning();
}

bool ScanModel::isAnalyzing() const {
    return state_.isDetectingDuplicates();
}

void ScanModel::pause() {
    state_.pauseScan();
}

void ScanModel::resume() {
    state_.resumeScan();
}

void ScanModel::cancel() {
    state_.cancelScan();
}

void ScanModel::analyzeDuplicates() {
    state_.runDuplicateDetection();
}

void ScanModel::changeSources() {
    state_.navigateToStep(WizardStep::sources);
}

void ScanModel::organize() {
    state_.proceedToNextStep();
}

/// The sources may have changed when the findings are shown, so their number is kept.
void ScanModel::followScan() {
    if (isScanning()) {
        sources_ = state_.sources().size();
    }
    emit isScanningChanged();
}

void ScanModel::copyUnreadable() const {
    QGuiApplication::clipboard()->setText(findings_.unreadable.join(QLatin1Char('\n')));
}

/// This goes through the whole catalogue, so it only runs while the screen is shown.
void ScanModel::count() {
    if (state_.currentStep() == WizardStep::scanResults) {
        counts_ = CatalogueCounts::of(*state_.scannedItems());
        showFindings();
    }
}

void ScanModel::showCounters() {
    counters_ = ScanCounters::of(state_.scanProgress());
    emit countersChanged();
    if (!isScanning()) {
        showFindings(); // the findings tell how long the scan took
    }
}

void ScanModel::showFindings() {
    findings_ = ScanFindings::of(counts_, sources_, state_, localization_);
    emit findingsChanged();
}

} // namespace lumeo
