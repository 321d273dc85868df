#include "ui/models/ScanModel.h"

#include "app/AppState.h"
#include "l10n/LocalizationManager.h"
#include "ui/models/ShownText.h"

namespace lumeo {

ScanModel::ScanModel(AppState& state, const LocalizationManager& localization, QObject* parent)
    : QObject(parent), state_(state), localization_(localization) {
    connect(&state_, &AppState::isScanningChanged, this, &ScanModel::isScanningChanged);
    connect(&state_, &AppState::scanProgressChanged, this, &ScanModel::progressChanged);
    connect(&state_, &AppState::isDetectingDuplicatesChanged, this, &ScanModel::isAnalyzingChanged);
    connect(&state_, &AppState::scannedItemsChanged, this, &ScanModel::count);
    connect(&state_, &AppState::currentStepChanged, this, &ScanModel::count);

    connect(this, &ScanModel::resultsChanged, this, &ScanModel::resultLinesChanged);
    connect(this, &ScanModel::progressChanged, this, &ScanModel::resultLinesChanged);
    connect(&state_, &AppState::sourcesChanged, this, &ScanModel::resultLinesChanged);
    connect(&localization_, &LocalizationManager::currentLanguageChanged, this,
            &ScanModel::resultLinesChanged);
    count();
}

bool ScanModel::isScanning() const {
    return state_.isScanning();
}

bool ScanModel::isPaused() const {
    return state_.scanProgress().isPaused;
}

QString ScanModel::photos() const {
    return shownNumber(state_.scanProgress().photosCount);
}

QString ScanModel::videos() const {
    return shownNumber(state_.scanProgress().videosCount);
}

QString ScanModel::raw() const {
    return shownNumber(state_.scanProgress().rawCount);
}

QString ScanModel::supported() const {
    return shownNumber(state_.scanProgress().supportedMediaCount());
}

QString ScanModel::inspected() const {
    return shownNumber(state_.scanProgress().totalScannedCount);
}

QString ScanModel::unsupported() const {
    return shownNumber(state_.scanProgress().unsupportedCount);
}

QString ScanModel::errors() const {
    return shownNumber(state_.scanProgress().errorsCount);
}

bool ScanModel::hasErrors() const {
    return state_.scanProgress().errorsCount > 0;
}

QString ScanModel::duration() const {
    return shownSeconds(state_.scanProgress().scanDurationSeconds);
}

QString ScanModel::currentName() const {
    return shownText(state_.scanProgress().currentItemName);
}

QString ScanModel::foundLine() const {
    return shownNumber(found_.items) + QLatin1Char(' ') +
           localization_.localized(QStringLiteral("results.subtitle")) + QLatin1Char(' ') +
           shownNumber(static_cast<std::int64_t>(state_.sources().size()));
}

QString ScanModel::scannedInLine() const {
    return localization_.localized(QStringLiteral("results.scannedIn")) + QLatin1Char(' ') + duration();
}

QString ScanModel::photosFound() const {
    return shownNumber(found_.photos);
}

QString ScanModel::videosFound() const {
    return shownNumber(found_.videos);
}

QString ScanModel::rawFound() const {
    return shownNumber(found_.raw);
}

QString ScanModel::duplicates() const {
    return shownNumber(found_.duplicates);
}

QString ScanModel::missingDates() const {
    return shownNumber(found_.missingDates);
}

QString ScanModel::warnings() const {
    return shownNumber(found_.warnings);
}

QString ScanModel::totalSize() const {
    return shownByteCount(found_.bytes);
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

void ScanModel::count() {
    if (state_.currentStep() != WizardStep::scanResults) {
        return;
    }
    found_ = {
        .items = state_.totalFilesCount(),
        .photos = state_.photosCount(),
        .videos = state_.videosCount(),
        .raw = state_.rawCount(),
        .duplicates = state_.exactDuplicatesCount(),
        .missingDates = state_.missingDateCount(),
        .warnings = state_.warningsCount(),
        .bytes = state_.totalMediaSizeBytes(),
    };
    emit resultsChanged();
}

double ScanModel::share(std::int64_t part) const {
    return found_.items > 0 ? static_cast<double>(part) / static_cast<double>(found_.items) : 0;
}

} // namespace lumeo
