#include "ui/models/ReportModel.h"

#include "app/AppState.h"
#include "l10n/LocalizationManager.h"
#include "platform/DocumentWriter.h"
#include "transfer/ReportExporter.h"
#include "ui/models/ShownText.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>

#include <utility>

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
    for (auto changed : {&AppState::isUndoingChanged, &AppState::undoForecastChanged,
                         &AppState::undoProgressChanged, &AppState::undoResultChanged}) {
        connect(&state, changed, this, &ReportModel::showUndo);
    }
    connect(&texts, &LocalizationManager::currentLanguageChanged, this, &ReportModel::showUndo);
    takeRun();
}

/// The report shows the items of the run, even when something else is scanned later. Messages about an
/// earlier run are cleared.
void ReportModel::takeRun() {
    const Manifest& run = state_.activeManifest();
    items_ = run ? state_.scannedItems() : noItems();
    figures_ =
        ReportTexts::of(run.get(), *items_, state_.journalProblem(), state_.scanProgress().errorsCount == 0);
    emit figuresChanged();
    emit destinationChanged();
    showUndoAlert_ = false;
    showUndo();
    tellExport({});
}

/// A catalogue is large, and the report is not shown again after the wizard has started anew.
void ReportModel::letGoOfItems() {
    if (state_.completedSteps().empty()) {
        items_ = noItems();
    }
}

/// The archive of the run. The next run may be planned for another place already.
std::optional<FilePath> ReportModel::destination() const {
    return state_.activeManifest() ? state_.activeManifest()->destinationRoot
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
         [](const OperationManifest& manifest, const std::vector<MediaItem>& items) {
             return ReportExporter::generateTextReport(manifest, items);
         });
}

void ReportModel::save(const SaveRequest& request, Document document) {
    if (!state_.activeManifest() || exporting_.isUnderWay) {
        return;
    }
    tellExport({.isUnderWay = true});
    desktop_.savePanel.choose(request, [model = QPointer(this), manifest = state_.activeManifest(),
                                        document](const std::optional<FilePath>& path) {
        if (!model) {
            return;
        }
        if (path) {
            model->write(manifest, document, *path);
        } else {
            model->tellExport({});
        }
    });
}

/// A document about a million files takes seconds to make, so a job makes it.
void ReportModel::write(Manifest manifest, Document document, const FilePath& path) {
    jobs_.start(
        [this, manifest = std::move(manifest), items = items_, document, path](const std::stop_token&) {
            return writeDocument(fileSystem_, document(*manifest, *items), path);
        },
        [this, path](const FileResult<void>& written) {
            if (written) {
                tellExport({.message = QStringLiteral("Saved as %1").arg(shownText(path.lastComponent()))});
            } else {
                FileError error = written.error();
                error.path = path; // not the temporary name under which it was written
                tellExport({.hasFailed = true, .message = shownText(error.message())});
            }
        });
}

void ReportModel::tellExport(ExportState state) {
    exporting_ = std::move(state);
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
    tellExport({});
    state_.startUndo();
}

void ReportModel::stopUndo() {
    state_.stopUndo();
}

void ReportModel::showUndo() {
    undo_ = UndoTexts::of(state_, texts_);
    emit undoChanged();
}

void ReportModel::copyUndoWarnings() const {
    QGuiApplication::clipboard()->setText(undo_.warnings.join(QLatin1Char('\n')));
}

void ReportModel::copyFailures() const {
    QGuiApplication::clipboard()->setText(figures_.failureLines.join(QLatin1Char('\n')));
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
