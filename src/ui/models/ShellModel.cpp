#include "ui/models/ShellModel.h"

#include "app/AppState.h"
#include "app/Preferences.h"
#include "l10n/LocalizationManager.h"

#include <algorithm>

namespace lumeo {

ShellModel::ShellModel(AppState& state, LocalizationManager& localization, Preferences& preferences,
                       QObject* parent)
    : QObject(parent), state_(state), localization_(localization), preferences_(preferences), steps_(state) {
    connect(&state, &AppState::currentStepChanged, this, &ShellModel::currentStepChanged);
    connect(&state, &AppState::isProcessingChanged, this, &ShellModel::isChangingFilesChanged);
    connect(&state, &AppState::isUndoingChanged, this, &ShellModel::isChangingFilesChanged);
    connect(&state, &AppState::operationProgressChanged, this, &ShellModel::workTextChanged);
    connect(&state, &AppState::undoProgressChanged, this, &ShellModel::workTextChanged);
    connect(&localization, &LocalizationManager::currentLanguageChanged, this,
            &ShellModel::currentLanguageChanged);
    connect(&localization, &LocalizationManager::currentLanguageChanged, this, &ShellModel::workTextChanged);
    connect(&preferences, &Preferences::appearanceChanged, this, &ShellModel::appearanceChanged);
}

int ShellModel::currentStep() const {
    return static_cast<int>(state_.currentStep());
}

QString ShellModel::tint() const {
    return WizardSteps::tint(currentStep());
}

QStringList ShellModel::languages() const {
    QStringList texts;
    for (const auto& [language, code] : EnumTexts<AppLanguage>::texts) {
        texts.append(flag(language) + u' ' + displayName(language));
    }
    return texts;
}

int ShellModel::currentLanguage() const {
    return static_cast<int>(localization_.currentLanguage());
}

bool ShellModel::isDark() const {
    return preferences_.appearance() == AppAppearance::dark;
}

bool ShellModel::isChangingFiles() const {
    return state_.isChangingFiles();
}

QString ShellModel::workText() const {
    const auto of = [this](std::int64_t processed, std::int64_t total) {
        return QStringLiteral("%1 / %2 %3")
            .arg(processed)
            .arg(total)
            .arg(localization_.localized(QStringLiteral("proc.processed")));
    };
    const OperationProgress& run = state_.operationProgress();
    const UndoProgress& undo = state_.undoProgress();
    return state_.isUndoing() ? of(undo.processedCount, undo.totalFiles)
                              : of(run.processedCount, run.totalFiles);
}

void ShellModel::navigateTo(int step) {
    if (step >= 0 && step < wizardStepCount) {
        state_.navigateToStep(static_cast<WizardStep>(step));
    }
}

void ShellModel::chooseLanguage(int language) {
    if (language >= 0 && language < static_cast<int>(EnumTexts<AppLanguage>::texts.size())) {
        localization_.setLanguage(static_cast<AppLanguage>(language));
    }
}

void ShellModel::flipAppearance() {
    preferences_.setAppearance(isDark() ? AppAppearance::light : AppAppearance::dark);
}

void ShellModel::addFolder() {
    if (state_.isScanning() || state_.isChangingFiles() || state_.isSelectingFolder()) {
        return;
    }
    state_.navigateToStep(WizardStep::sources);
    state_.promptAddFolderPanel();
}

void ShellModel::setReducedMotion(bool reduced) {
    if (reduced != reducedMotion_) {
        reducedMotion_ = reduced;
        emit reducedMotionChanged();
    }
}

void ShellModel::setTextScale(double factor) {
    const double bounded = std::clamp(factor, 0.9, 1.5);
    if (bounded != textScale_) {
        textScale_ = bounded;
        emit textScaleChanged();
    }
}

} // namespace lumeo
