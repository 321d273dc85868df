#include "ui/models/ReportTexts.h"

#include "app/AppState.h"
#include "l10n/LocalizationManager.h"
#include "model/OrganizationPlan.h"
#include "transfer/SourceProof.h"
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

QString noticesOf(const OperationManifest& run) {
    QStringList lines;
    for (const std::string& notice : run.notices) {
        lines.append(shownText(notice));
    }
    return lines.join(QLatin1Char('\n'));
}

/// Only what the run itself has proven. What the scan could not read may be media, too.
QString sentenceOf(const SourceProof& proof, bool sawAll) {
    const QString name = shownText(proof.root.lastComponent());
    const QString missing = shownNumber(proof.mediaFiles - proof.inArchive);
    if (proof.inArchive < proof.mediaFiles) {
        return QStringLiteral("%1 of the %2 media files of %3 are not proven to be in the archive.")
            .arg(missing, shownNumber(proof.mediaFiles), name);
    }
    return sawAll ? QStringLiteral("All %1 media files of %2 are in the archive.")
                        .arg(shownNumber(proof.mediaFiles), name)
                  : QStringLiteral("The %1 media files of %2 that could be read are in the archive.")
                        .arg(shownNumber(proof.mediaFiles), name);
}

QString proofOf(const OperationManifest& run, std::span<const MediaItem> items, bool sawAll) {
    QStringList lines;
    if (run.operationType == rawValue(OperationMode::copy)) {
        for (const SourceProof& proof : proveSources(run, items)) {
            if (proof.mediaFiles > 0) {
                lines.append(sentenceOf(proof, sawAll));
            }
        }
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace

ReportTexts ReportTexts::of(const OperationManifest* manifest, std::span<const MediaItem> items,
                            std::string_view journalProblem, bool sawAll) {
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
    if (manifest != nullptr) {
        shown.notices = noticesOf(*manifest);
        shown.proof = proofOf(*manifest, items, sawAll);
    }
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
        shown.isOfReport = state.activeManifest() && state.undoneJournal() == state.activeJournal();
    }
    return shown;
}

} // namespace lumeo
