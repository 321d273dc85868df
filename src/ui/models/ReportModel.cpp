#include "ui/models/ReportModel.h"

#include "app/AppState.h"
#include "l10n/LocalizationManager.h"
#include "platform/DocumentWriter.h"
#include "transfer/ReportExporter.h"
#include "ui/models/RunTexts.h"
#include "ui/models/ShownText.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>
#include <QVariantMap>

#include <algorithm>

namespace lumeo {
namespace {

AppState::Items noItems() {
    return std::make_shared<const std::vector<MediaItem>>();
}

} // namespace

ReportModel::ReportModel(AppState& state, const LocalizationManager& texts, const Desktop& desktop,
                         FileSystem& fileSystem, const Clock& clock, QObject* parent)
    : QObject(parent),
      state_(state),
      texts_(texts),
      desktop_(desktop),
      fileSystem_(fileSystem),
      clock_(clock) {
    connect(&state, &AppState::activeManifestChanged, this, &ReportModel::takeRun);
    connect(&state, &AppState::completedStepsChanged, this, &ReportModel::letGoOfItems);
    connect(&state, &AppState::organizationPlanChanged, this, &ReportModel::destinationChanged);
    connect(&state, &AppState::isUndoingChanged, this, &ReportModel::undoChanged);
    connect(&state, &AppState::undoForecastChanged, this, &ReportModel::undoForecastChanged);
    connect(&state, &AppState::undoProgressChanged, this, &ReportModel::undoProgressChanged);
    connect(&state, &AppState::undoResultChanged, this, &ReportModel::takeUndoResult);
    connect(&texts, &LocalizationManager::currentLanguageChanged, this, &ReportModel::undoChanged);
    connect(&texts, &LocalizationManager::currentLanguageChanged, this, &ReportModel::undoProgressChanged);
    takeRun();
}

/// The report is of what the run worked on, whatever is scanned after it; and what was said about one run
/// means nothing for the next.
void ReportModel::takeRun() {
    items_ = hasManifest() ? state_.scannedItems() : noItems();
    figures_ = ReportFigures::of(state_.activeManifest().get(), *items_);
    emit figuresChanged();
    emit destinationChanged();
    showUndoAlert_ = false;
    emit undoChanged();
    exportMessage_.clear();
    exportFailed_ = false;
    emit exportChanged();
}

/// A catalogue is large, and nobody comes back to the report once the wizard has started anew.
void ReportModel::letGoOfItems() {
    if (state_.completedSteps().empty()) {
        items_ = noItems();
    }
}

bool ReportModel::hasManifest() const {
    return state_.activeManifest() != nullptr;
}

QString ReportModel::organized() const {
    return shownNumber(figures_.organized);
}

QString ReportModel::skipped() const {
    return shownNumber(figures_.skipped);
}

QString ReportModel::errors() const {
    return shownNumber(figures_.failed);
}

QString ReportModel::totalTransferred() const {
    return shownByteCount(figures_.transferredBytes);
}

QVariantList ReportModel::timeline() const {
    std::int64_t greatest = 1;
    for (const ReportFigures::Year& year : figures_.timeline) {
        greatest = std::max(greatest, year.fileCount);
    }
    QVariantList rows;
    for (const ReportFigures::Year& year : figures_.timeline) {
        rows.append(QVariantMap{
            {QStringLiteral("label"), QString::fromStdString(year.label)},
            {QStringLiteral("count"), fileCountText(year.fileCount)},
            {QStringLiteral("share"), static_cast<double>(year.fileCount) / static_cast<double>(greatest)}});
    }
    return rows;
}

QString ReportModel::duration() const {
    return QString::number(figures_.durationSeconds, 'f', 1) + QStringLiteral(" seconds");
}

QString ReportModel::mode() const {
    return QString::fromStdString(figures_.mode);
}

QString ReportModel::photosVsVideos() const {
    return QStringLiteral("%1 photos, %2 videos")
        .arg(shownNumber(figures_.photos), shownNumber(figures_.videos));
}

QString ReportModel::unknownDates() const {
    return QStringLiteral("%1 file(s)").arg(shownNumber(figures_.undated));
}

/// The archive of the run, though the next one may be planned for another place already.
std::optional<FilePath> ReportModel::destination() const {
    return hasManifest() ? state_.activeManifest()->destinationRoot
                         : state_.organizationPlan().destinationURL;
}

bool ReportModel::hasDestination() const {
    return destination().has_value();
}

void ReportModel::exportCSV() {
    save({.defaultName = QString::fromStdString(ReportExporter::defaultCSVName(clock_.now())),
          .prompt = QStringLiteral("Export CSV"),
          .suffix = QStringLiteral("csv")},
         [](const OperationManifest& manifest, const std::vector<MediaItem>& items) {
             return ReportExporter::generateCSV(manifest, items);
         });
}

void ReportModel::exportReport() {
    save({.defaultName = QString::fromStdString(ReportExporter::defaultTextReportName(clock_.now())),
          .prompt = QStringLiteral("Export Report"),
          .suffix = QStringLiteral("txt")},
         [](const OperationManifest& manifest, const std::vector<MediaItem>&) {
             return ReportExporter::generateTextReport(manifest);
         });
}

void ReportModel::save(const SaveRequest& request, Document document) {
    if (!hasManifest() || isExporting_) {
        return;
    }
    isExporting_ = true;
    exportMessage_.clear();
    exportFailed_ = false;
    emit exportChanged();
    desktop_.savePanel.choose(request, [model = QPointer(this), manifest = state_.activeManifest(),
                                        document](const std::optional<FilePath>& path) {
        if (!model) {
            return;
        }
        if (path) {
            model->write(manifest, document, *path);
        } else {
            model->endExport({}, false);
        }
    });
}

/// A document of a million files takes seconds to make, so it is made where nobody waits for it.
void ReportModel::write(Manifest manifest, Document document, const FilePath& path) {
    jobs_.start(
        [this, manifest = std::move(manifest), items = items_, document, path](const std::stop_token&) {
            return writeDocument(fileSystem_, document(*manifest, *items), path);
        },
        [this, path](const FileResult<void>& written) {
            if (written) {
                endExport(QStringLiteral("Saved as %1").arg(shownText(path.lastComponent())), false);
            } else {
                FileError error = written.error();
                error.path = path; // not the one that it was to be written as before it gets its name
                endExport(shownText(error.message()), true);
            }
        });
}

void ReportModel::endExport(const QString& message, bool failed) {
    isExporting_ = false;
    exportMessage_ = message;
    exportFailed_ = failed;
    emit exportChanged();
}

void ReportModel::setShowUndoAlert(bool show) {
    if (show != showUndoAlert_) {
        showUndoAlert_ = show;
        if (show) {
            state_.considerUndo();
        }
        emit undoChanged();
    }
}

void ReportModel::confirmUndo() {
    setShowUndoAlert(false);
    state_.startUndo();
}

void ReportModel::stopUndo() {
    state_.stopUndo();
}

QString ReportModel::undoForecast() const {
    return forecastText(state_.undoForecast());
}

QString ReportModel::journalProblem() const {
    return hasManifest() ? asSentence(state_.journalProblem()) : QString();
}

bool ReportModel::isUndoing() const {
    return state_.isUndoing();
}

double ReportModel::undoFraction() const {
    const UndoProgress& progress = state_.undoProgress();
    return progress.totalFiles > 0
               ? static_cast<double>(progress.processedCount) / static_cast<double>(progress.totalFiles)
               : 0;
}

QString ReportModel::undoProgressText() const {
    const UndoProgress& progress = state_.undoProgress();
    return progress.totalFiles > 0 ? QStringLiteral("%1 / %2 %3")
                                         .arg(progress.processedCount)
                                         .arg(progress.totalFiles)
                                         .arg(texts_.localized(QStringLiteral("proc.processed")))
                                   : QString();
}

void ReportModel::takeUndoResult() {
    QStringList warnings;
    if (const auto& result = state_.undoResult()) {
        warnings.reserve(static_cast<qsizetype>(result->warnings.size()));
        for (const std::string& warning : result->warnings) {
            warnings.append(shownText(warning));
        }
    }
    undoWarnings_.setStringList(warnings);
    emit undoChanged();
}

QString ReportModel::undoStatusMessage() const {
    const auto& result = state_.undoResult();
    if (!state_.undoRefusal().empty()) {
        return asSentence(state_.undoRefusal());
    }
    return result ? QStringLiteral("Rollback complete: %1 files restored/removed.").arg(result->restoredCount)
                  : QString();
}

bool ReportModel::undoIsComplete() const {
    return state_.undoRefusal().empty() && undoWarningCount() == 0;
}

QString ReportModel::undoCounts() const {
    const auto& result = state_.undoResult();
    if (!result || result->warnings.empty()) {
        return {};
    }
    return QStringLiteral("%1: %2 · %3: %4")
        .arg(texts_.localized(QStringLiteral("report.skipped")), shownNumber(result->skippedCount),
             texts_.localized(QStringLiteral("report.errors")), shownNumber(result->failedCount));
}

void ReportModel::copyUndoWarnings() const {
    QGuiApplication::clipboard()->setText(undoWarnings_.stringList().join(QLatin1Char('\n')));
}

void ReportModel::openDestination() {
    if (const auto folder = destination()) {
        desktop_.fileBrowser.reveal(*folder);
    }
}

void ReportModel::startNewArchive() {
    state_.restartWorkflow();
}

void ReportModel::done() {
    state_.finishCompletedOperation();
}

} // namespace lumeo
