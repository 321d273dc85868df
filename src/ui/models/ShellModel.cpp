#include "ui/models/ShellModel.h"

#include "app/AppState.h"
#include "app/Preferences.h"
#include "l10n/LocalizationManager.h"
#include "platform/TextFormat.h"

namespace lumeo {

ShellModel::ShellModel(AppState& state, LocalizationManager& localization, Preferences& preferences,
                       QObject* parent)
    : QObject(parent), state_(state), localization_(localization), preferences_(preferences), steps_(state) {
    connect(&state, &AppState::currentStepChanged, this, &ShellModel::currentStepChanged);
    connect(&state, &AppState::isProcessingChanged, this, &ShellModel::isProcessingChanged);
    connect(&state, &AppState::operationProgressChanged, this, &ShellModel::runTextChanged);
    connect(&localization, &LocalizationManager::currentLanguageChanged, this,
            &ShellModel::currentLanguageChanged);
    connect(&localization, &LocalizationManager::currentLanguageChanged, this, &ShellModel::runTextChanged);
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

bool ShellModel::isProcessing() const {
    return state_.isProcessing();
}

QString ShellModel::runText() const {
    const auto& progress = state_.operationProgress();
    return QStringLiteral("%1 / %2 %3")
        .arg(QString::number(progress.processedCount), QString::number(progress.totalFiles),
             localization_.localized(QStringLiteral("proc.processed")));
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
    if (state_.isScanning() || state_.isProcessing() || state_.isSelectingFolder()) {
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

} // namespace lumeo
