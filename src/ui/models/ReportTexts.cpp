#include "ui/models/ReportTexts.h"

#include "app/AppState.h"
#include "l10n/LocalizationManager.h"
#include "ui/models/FailureGroups.h"
#include "ui/models/RunTexts.h"
#include "ui/models/ShownText.h"

#include <QVariantMap>

#include <algorithm>

namespace lumeo {
namespace {

QVariantList rows(const std::vector<ReportFigures::Year>& timeline) {
    std::int64_t greatest = 1;
    for (const ReportFigures::Year& year : timeline) {
        greatest = std::max(greatest, year.fileCount);
    }
    QVariantList rows;
    for (const ReportFigures::Year& year : timeline) {
        rows.append(QVariantMap{
            {QStringLiteral("label"), QString::fromStdString(year.label)},
            {QStringLiteral("count"), fileCountText(year.fileCount)},
            {QStringLiteral("share"), static_cast<double>(year.fileCount) / static_cast<double>(greatest)}});
    }
    return rows;
}

void showResult(UndoTexts& shown, const UndoResult& result, const LocalizationManager& texts) {
    shown.outcome = QStringLiteral("Rollback complete: %1 files restored/removed.").arg(result.restoredCount);
    for (const std::string& warning : result.warnings) {
        shown.warnings.append(shownText(warning));
    }
    shown.isComplete = shown.warnings.isEmpty();
    if (!shown.isComplete) {
        shown.counts =
            QStringLiteral("%1: %2 · %3: %4")
                .arg(texts.localized(QStringLiteral("report.skipped")), shownNumber(result.skippedCount),
                     texts.localized(QStringLiteral("report.errors")), shownNumber(result.failedCount));
    }
}

} // namespace

ReportTexts ReportTexts::of(const OperationManifest* manifest, std::span<const MediaItem> items,
                            std::string_view journalProblem) {
    const ReportFigures figures = ReportFigures::of(manifest, items);
    ReportTexts shown;
    shown.hasManifest = manifest != nullptr;
    shown.hasFailures = figures.failed > 0;
    shown.hasOnlyFailures = shown.hasFailures && figures.organized + figures.skipped == 0;
    for (const FailureGroup& group : failureGroups(manifest)) {
        shown.failures.append(group.shown());
        shown.failureLines += group.lines();
    }
    if (shown.hasOnlyFailures) {
        shown.subtitle = QStringLiteral("No file could be organized. Each is where it was.");
    } else if (shown.hasFailures) {
        shown.subtitle = QStringLiteral("%1 could not be organized; all others are structured and verified.")
                             .arg(fileCountText(figures.failed));
    }
    shown.organized = shownNumber(figures.organized);
    shown.skipped = shownNumber(figures.skipped);
    shown.errors = shownNumber(figures.failed);
    shown.totalTransferred = shownByteCount(figures.transferredBytes);
    shown.timeline = rows(figures.timeline);
    shown.duration = QString::number(figures.durationSeconds, 'f', 1) + QStringLiteral(" seconds");
    shown.mode = QString::fromStdString(figures.mode);
    shown.photosVsVideos =
        QStringLiteral("%1 photos, %2 videos").arg(shownNumber(figures.photos), shownNumber(figures.videos));
    shown.unknownDates = QStringLiteral("%1 file(s)").arg(shownNumber(figures.undated));
    shown.journalProblem = shown.hasManifest ? asSentence(journalProblem) : QString();
    return shown;
}

UndoTexts UndoTexts::of(const AppState& state, const LocalizationManager& texts) {
    UndoTexts shown;
    shown.forecast = forecastText(state.undoForecast());
    shown.isUnderWay = state.isUndoing();
    if (const UndoProgress& progress = state.undoProgress(); progress.totalFiles > 0) {
        shown.fraction =
            static_cast<double>(progress.processedCount) / static_cast<double>(progress.totalFiles);
        shown.progress = QStringLiteral("%1 / %2 %3")
                             .arg(progress.processedCount)
                             .arg(progress.totalFiles)
                             .arg(texts.localized(QStringLiteral("proc.processed")));
    }
    if (!state.undoRefusal().empty()) {
        shown.outcome = asSentence(state.undoRefusal());
        shown.isComplete = false;
    } else if (state.undoResult()) {
        showResult(shown, *state.undoResult(), texts);
        shown.hasUndoneReport =
            shown.isComplete && state.activeManifest() && state.undoneJournal() == state.activeJournal();
    }
    return shown;
}

} // namespace lumeo
