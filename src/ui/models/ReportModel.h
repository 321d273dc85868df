#pragma once

#include "app/BackgroundJobs.h"
#include "app/Desktop.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "transfer/OperationManifest.h"
#include "ui/models/ReportTexts.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <optional>

namespace lumeo {

class AppState;
class LocalizationManager;

/// The outcome of the last run, and its commands: save it as a document, open the archive, undo the run,
/// start again.
class ReportModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program")
    Q_PROPERTY(lumeo::ReportTexts figures READ figures NOTIFY figuresChanged)
    Q_PROPERTY(bool hasDestination READ hasDestination NOTIFY destinationChanged)
    Q_PROPERTY(lumeo::ExportState exporting READ exporting NOTIFY exportChanged)
    Q_PROPERTY(bool showUndoAlert READ showUndoAlert WRITE setShowUndoAlert NOTIFY undoChanged)
    Q_PROPERTY(lumeo::UndoTexts undo READ undo NOTIFY undoChanged)

public:
    /// What is given must outlive this object.
    ReportModel(AppState& state, const LocalizationManager& texts, const Desktop& desktop,
                FileSystem& fileSystem, const Clock& clock, QObject* parent = nullptr);

    [[nodiscard]] const ReportTexts& figures() const { return figures_; }
    [[nodiscard]] bool hasDestination() const;
    [[nodiscard]] const ExportState& exporting() const { return exporting_; }
    [[nodiscard]] bool showUndoAlert() const { return showUndoAlert_; }
    void setShowUndoAlert(bool show);
    [[nodiscard]] const UndoTexts& undo() const { return undo_; }

    Q_INVOKABLE void exportCSV();
    Q_INVOKABLE void exportReport();
    Q_INVOKABLE void confirmUndo(); ///< does nothing without a journal, or during an undo
    Q_INVOKABLE void stopUndo();
    Q_INVOKABLE void copyUndoWarnings() const;
    Q_INVOKABLE void copyFailures() const;
    Q_INVOKABLE void openDestination();
    Q_INVOKABLE void startNewArchive();
    Q_INVOKABLE void done();

signals:
    void figuresChanged();
    void destinationChanged();
    void exportChanged();
    void undoChanged();

private:
    using Manifest = std::shared_ptr<const OperationManifest>;
    using Document = std::string (*)(const OperationManifest&, const std::vector<MediaItem>&);

    void takeRun();
    void letGoOfItems();
    [[nodiscard]] std::optional<FilePath> destination() const;
    void save(const SaveRequest& request, Document document);
    void write(Manifest manifest, Document document, const FilePath& path);
    void tellExport(ExportState state);
    void showUndo();

    AppState& state_;
    const LocalizationManager& texts_;
    Desktop desktop_;
    FileSystem& fileSystem_;
    const Clock& clock_;
    std::shared_ptr<const std::vector<MediaItem>> items_; ///< of the run; never null
    ReportTexts figures_;
    ExportState exporting_;
    bool showUndoAlert_ = false;
    UndoTexts undo_;
    BackgroundJobs jobs_{*this}; ///< last: its threads must end before what they work with
};

} // namespace lumeo
