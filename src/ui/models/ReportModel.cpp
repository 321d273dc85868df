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

ReportModel::ReportModel(AppState& state, const LocalizationManager& texts, const Desktop& desktop,
                         FileSystem& fileSystem, const Clock& clock, QObject* parent)
    : QObject(parent),
      state_(state),
      texts_(texts),
      desktop_(desktop),
      fileSystem_(fileSystem),
      clock_(clock) {
    connect(&state, &AppState::activeManifestChanged, this, &ReportModel::forgetOutcomes);
    connect(&state, &AppState::activeManifestChanged, this, &ReportModel::takeFigures);
    connect(&state, &AppState::scannedItemsChanged, this, &ReportModel::takeFigures);
    connect(&state, &AppState::currentStepChanged, this, &ReportModel::takeFigures);
    connect(&state, &AppState::organizationPlanChanged, this, &ReportModel::destinationChanged);
    connect(&texts, &LocalizationManager::currentLanguageChanged, this, &ReportModel::undoChanged);
    connect(&texts, &LocalizationManager::currentLanguageChanged, this, &ReportModel::undoProgressChanged);
    takeFigures();
}

void ReportModel::takeFigures() {
    if (state_.currentStep() == WizardStep::report) {
        figures_ = ReportFigures::of(state_.activeManifest().get(), *state_.scannedItems());
        emit figuresChanged();
    }
}

/// What was said about one run means nothing for the next.
void ReportModel::forgetOutcomes() {
    undoResult_.reset();
    undoWarnings_.setStringList({});
    showUndoAlert_ = false;
    emit undoChanged();
    exportMessage_.clear();
    exportFailed_ = false;
    emit exportChanged();
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

bool ReportModel::hasDestination() const {
    return state_.organizationPlan().destinationURL.has_value();
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
        [this, manifest = std::move(manifest), items = state_.scannedItems(), document, path](
            const std::stop_token&) { return writeDocument(fileSystem_, document(*manifest, *items), path); },
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
        emit undoChanged();
    }
}

void ReportModel::confirmUndo() {
    showUndoAlert_ = false;
    if (hasManifest() && !isUndoing_) {
        isUndoing_ = true;
        undoResult_.reset();
        undoWarnings_.setStringList({});
        showUndoProgress({});
        const auto latest = std::make_shared<LatestValue<UndoProgress>>();
        jobs_.start(
            [this, manifest = state_.activeManifest(), latest](const std::stop_token& stop) {
                return UndoEngine(fileSystem_)
                    .rollback(
                        *manifest,
                        [&](const UndoProgress& progress) {
                            latest->post(*this, progress,
                                         [this](UndoProgress value) { showUndoProgress(std::move(value)); });
                        },
                        stop);
            },
            [this, manifest = state_.activeManifest()](UndoResult result) {
                endUndo(manifest, std::move(result));
            });
    }
    emit undoChanged();
}

void ReportModel::showUndoProgress(UndoProgress progress) {
    undoProgress_ = std::move(progress);
    emit undoProgressChanged();
}

double ReportModel::undoFraction() const {
    return undoProgress_.totalFiles > 0 ? static_cast<double>(undoProgress_.processedCount) /
                                              static_cast<double>(undoProgress_.totalFiles)
                                        : 0;
}

QString ReportModel::undoProgressText() const {
    return undoProgress_.totalFiles > 0 ? QStringLiteral("%1 / %2 %3")
                                              .arg(undoProgress_.processedCount)
                                              .arg(undoProgress_.totalFiles)
                                              .arg(texts_.localized(QStringLiteral("proc.processed")))
                                        : QString();
}

void ReportModel::endUndo(const Manifest& manifest, UndoResult result) {
    isUndoing_ = false;
    if (manifest == state_.activeManifest()) {
        QStringList warnings;
        warnings.reserve(static_cast<qsizetype>(result.warnings.size()));
        for (const std::string& warning : result.warnings) {
            warnings.append(shownText(warning));
        }
        undoWarnings_.setStringList(warnings);
        undoResult_ = std::move(result);
    }
    emit undoChanged();
}

QString ReportModel::undoStatusMessage() const {
    return undoResult_ ? QStringLiteral("Rollback complete: %1 files restored/removed.")
                             .arg(undoResult_->restoredCount)
                       : QString();
}

QString ReportModel::undoCounts() const {
    if (!undoResult_ || undoResult_->warnings.empty()) {
        return {};
    }
    return QStringLiteral("%1: %2 · %3: %4")
        .arg(texts_.localized(QStringLiteral("report.skipped")), shownNumber(undoResult_->skippedCount),
             texts_.localized(QStringLiteral("report.errors")), shownNumber(undoResult_->failedCount));
}

void ReportModel::copyUndoWarnings() const {
    QGuiApplication::clipboard()->setText(undoWarnings_.stringList().join(QLatin1Char('\n')));
}

void ReportModel::openDestination() {
    if (const auto& destination = state_.organizationPlan().destinationURL) {
        desktop_.fileBrowser.reveal(*destination);
    }
}

void ReportModel::startNewArchive() {
    state_.restartWorkflow();
}

void ReportModel::done() {
    state_.finishCompletedOperation();
}

} // namespace lumeo
