#pragma once

#include "app/BackgroundJobs.h"
#include "app/Desktop.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "transfer/OperationManifest.h"
#include "ui/models/ReportFigures.h"

#include <QAbstractItemModel>
#include <QObject>
#include <QString>
#include <QStringListModel>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <optional>

namespace lumeo {

class AppState;
class LocalizationManager;

/// The outcome of the last run, and what can be done with it: save it as a document, open the archive,
/// take the run back, begin again.
class ReportModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program")
    Q_PROPERTY(bool hasManifest READ hasManifest NOTIFY figuresChanged)
    Q_PROPERTY(bool hasFailures READ hasFailures NOTIFY figuresChanged)
    Q_PROPERTY(QString organized READ organized NOTIFY figuresChanged)
    Q_PROPERTY(QString skipped READ skipped NOTIFY figuresChanged)
    Q_PROPERTY(QString errors READ errors NOTIFY figuresChanged)
    Q_PROPERTY(QString totalTransferred READ totalTransferred NOTIFY figuresChanged)
    Q_PROPERTY(QVariantList timeline READ timeline NOTIFY figuresChanged) ///< {label, count, share: 0…1}
    Q_PROPERTY(QString duration READ duration NOTIFY figuresChanged)
    Q_PROPERTY(QString mode READ mode NOTIFY figuresChanged)
    Q_PROPERTY(QString photosVsVideos READ photosVsVideos NOTIFY figuresChanged)
    Q_PROPERTY(QString unknownDates READ unknownDates NOTIFY figuresChanged)
    /// Why the journal of the run is not kept on disk; empty when it is.
    Q_PROPERTY(QString journalProblem READ journalProblem NOTIFY figuresChanged)
    Q_PROPERTY(bool hasDestination READ hasDestination NOTIFY destinationChanged)

    Q_PROPERTY(bool isExporting READ isExporting NOTIFY exportChanged)
    Q_PROPERTY(bool exportFailed READ exportFailed NOTIFY exportChanged)
    Q_PROPERTY(QString exportMessage READ exportMessage NOTIFY exportChanged) ///< how the last one ended

    Q_PROPERTY(bool showUndoAlert READ showUndoAlert WRITE setShowUndoAlert NOTIFY undoChanged)
    Q_PROPERTY(QString undoForecast READ undoForecast NOTIFY undoForecastChanged)
    Q_PROPERTY(bool isUndoing READ isUndoing NOTIFY undoChanged)
    Q_PROPERTY(double undoFraction READ undoFraction NOTIFY undoProgressChanged) ///< from 0 to 1
    /// "120 / 4000 files processed"; empty until the first file is looked at.
    Q_PROPERTY(QString undoProgressText READ undoProgressText NOTIFY undoProgressChanged)
    Q_PROPERTY(QString undoStatusMessage READ undoStatusMessage NOTIFY undoChanged) ///< empty before
    Q_PROPERTY(bool undoIsComplete READ undoIsComplete NOTIFY undoChanged) ///< nothing was left as it was
    Q_PROPERTY(QString undoCounts READ undoCounts NOTIFY undoChanged)      ///< empty when all went well
    Q_PROPERTY(QAbstractItemModel* undoWarnings READ undoWarnings CONSTANT)
    Q_PROPERTY(int undoWarningCount READ undoWarningCount NOTIFY undoChanged)

public:
    /// What is given must outlive this object.
    ReportModel(AppState& state, const LocalizationManager& texts, const Desktop& desktop,
                FileSystem& fileSystem, const Clock& clock, QObject* parent = nullptr);

    [[nodiscard]] bool hasManifest() const;
    [[nodiscard]] bool hasFailures() const { return figures_.failed > 0; }
    [[nodiscard]] QString organized() const;
    [[nodiscard]] QString skipped() const;
    [[nodiscard]] QString errors() const;
    [[nodiscard]] QString totalTransferred() const;
    [[nodiscard]] QVariantList timeline() const;
    [[nodiscard]] QString duration() const;
    [[nodiscard]] QString mode() const;
    [[nodiscard]] QString photosVsVideos() const;
    [[nodiscard]] QString unknownDates() const;
    [[nodiscard]] QString journalProblem() const;
    [[nodiscard]] bool hasDestination() const;
    [[nodiscard]] bool isExporting() const { return isExporting_; }
    [[nodiscard]] bool exportFailed() const { return exportFailed_; }
    [[nodiscard]] const QString& exportMessage() const { return exportMessage_; }
    [[nodiscard]] bool showUndoAlert() const { return showUndoAlert_; }
    void setShowUndoAlert(bool show);
    [[nodiscard]] QString undoForecast() const;
    [[nodiscard]] bool isUndoing() const;
    [[nodiscard]] double undoFraction() const;
    [[nodiscard]] QString undoProgressText() const;
    [[nodiscard]] QString undoStatusMessage() const;
    [[nodiscard]] bool undoIsComplete() const;
    [[nodiscard]] QString undoCounts() const;
    [[nodiscard]] QAbstractItemModel* undoWarnings() { return &undoWarnings_; }
    [[nodiscard]] int undoWarningCount() const { return undoWarnings_.rowCount(); }

    Q_INVOKABLE void exportCSV();
    Q_INVOKABLE void exportReport();
    Q_INVOKABLE void confirmUndo(); ///< nothing without a journal, or while an undo is under way
    Q_INVOKABLE void stopUndo();
    Q_INVOKABLE void copyUndoWarnings() const;
    Q_INVOKABLE void openDestination();
    Q_INVOKABLE void startNewArchive();
    Q_INVOKABLE void done();

signals:
    void figuresChanged();
    void destinationChanged();
    void exportChanged();
    void undoChanged();
    void undoForecastChanged();
    void undoProgressChanged();

private:
    using Manifest = std::shared_ptr<const OperationManifest>;
    using Document = std::string (*)(const OperationManifest&, const std::vector<MediaItem>&);

    void takeRun();
    void letGoOfItems();
    [[nodiscard]] std::optional<FilePath> destination() const;
    void save(const SaveRequest& request, Document document);
    void write(Manifest manifest, Document document, const FilePath& path);
    void endExport(const QString& message, bool failed);
    void takeUndoResult();

    AppState& state_;
    const LocalizationManager& texts_;
    Desktop desktop_;
    FileSystem& fileSystem_;
    const Clock& clock_;
    std::shared_ptr<const std::vector<MediaItem>> items_; ///< of the run; never null
    ReportFigures figures_;
    bool isExporting_ = false; ///< from the question where to on
    bool exportFailed_ = false;
    QString exportMessage_;
    bool showUndoAlert_ = false;
    QStringListModel undoWarnings_;
    BackgroundJobs jobs_{*this}; ///< last: its threads end before what they work with
};

} // namespace lumeo
