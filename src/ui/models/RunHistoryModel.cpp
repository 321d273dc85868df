#include "ui/models/RunHistoryModel.h"

#include "app/AppState.h"
#include "l10n/AppLanguage.h"
#include "l10n/LocalizationManager.h"
#include "ui/models/RunTexts.h"
#include "ui/models/ShownText.h"

#include <utility>

namespace lumeo {

RunHistoryModel::RunHistoryModel(AppState& state, const LocalizationManager& localization, QObject* parent)
    : QObject(parent), state_(state), localization_(localization) {
    connect(&state_, &AppState::recentRunsChanged, this, &RunHistoryModel::changed);
    connect(&state_, &AppState::isProcessingChanged, this, &RunHistoryModel::changed);
    connect(&state_, &AppState::isUndoingChanged, this, &RunHistoryModel::changed);
    connect(&state_, &AppState::undoForecastChanged, this, &RunHistoryModel::alertChanged);
    connect(&localization_, &LocalizationManager::currentLanguageChanged, this, &RunHistoryModel::changed);
}

bool RunHistoryModel::canUndoCompleted() const {
    return state_.recentRuns().completed && !state_.isChangingFiles();
}

QString RunHistoryModel::interrupted() const {
    const std::optional<RunEntry>& run = state_.recentRuns().interrupted;
    if (!run || state_.isChangingFiles()) {
        return {};
    }
    const std::string date = TextFormat::date(run->startedAt, DateStyle::mediumStyle, DateStyle::none,
                                              languageCode(localization_.currentLanguage()).toStdString());
    return QStringLiteral("Interrupted on %1: %2 of %3 %4")
        .arg(QChar(0x2068) + shownText(date) +
                 QChar(0x2069), // whichever way its script runs shownNumber(run->verifiedFiles),
                                // fileCountText(run->totalFiles),
             run->operationType == "move" ? QStringLiteral("moved") : QStringLiteral("copied"));
}

QString RunHistoryModel::forecast() const {
    return forecastText(state_.undoForecast());
}

void RunHistoryModel::considerCompleted() {
    if (canUndoCompleted()) {
        consider(state_.recentRuns().completed->journal);
    }
}

void RunHistoryModel::considerInterrupted() {
    if (!interrupted().isEmpty()) {
        consider(state_.recentRuns().interrupted->journal);
    }
}

void RunHistoryModel::consider(const FilePath& journal) {
    considered_ = journal;
    state_.considerUndo(journal);
    emit alertChanged();
}

void RunHistoryModel::confirmUndo() {
    const FilePath journal = std::exchange(considered_, {});
    emit alertChanged();
    if (!journal.empty()) {
        state_.startUndo(journal);
    }
}

void RunHistoryModel::keep() {
    considered_ = {};
    emit alertChanged();
}

void RunHistoryModel::dismissInterrupted() {
    if (!interrupted().isEmpty()) {
        state_.dismissRun(state_.recentRuns().interrupted->journal);
    }
}

} // namespace lumeo
