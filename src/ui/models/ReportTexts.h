#pragma once

#include "transfer/UndoEngine.h"
#include "ui/models/ReportFigures.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

namespace lumeo {

class AppState;
class LocalizationManager;

/// The outcome of a run as the report shows it.
struct ReportTexts {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(bool hasManifest MEMBER hasManifest)
    Q_PROPERTY(bool hasFailures MEMBER hasFailures)
    Q_PROPERTY(bool hasOnlyFailures MEMBER hasOnlyFailures)
    Q_PROPERTY(QVariantList failures MEMBER failures)
    Q_PROPERTY(QStringList failureLines MEMBER failureLines)
    Q_PROPERTY(QString subtitle MEMBER subtitle)
    Q_PROPERTY(QString organized MEMBER organized)
    Q_PROPERTY(QString skipped MEMBER skipped)
    Q_PROPERTY(QString errors MEMBER errors)
    Q_PROPERTY(QString totalTransferred MEMBER totalTransferred)
    Q_PROPERTY(QVariantList timeline MEMBER timeline)
    Q_PROPERTY(QString duration MEMBER duration)
    Q_PROPERTY(QString mode MEMBER mode)
    Q_PROPERTY(QString photosVsVideos MEMBER photosVsVideos)
    Q_PROPERTY(QString unknownDates MEMBER unknownDates)
    Q_PROPERTY(QString journalProblem MEMBER journalProblem)
    Q_PROPERTY(QString notices MEMBER notices)
    Q_PROPERTY(QString proof MEMBER proof)

public:
    bool hasManifest = false;
    bool hasFailures = false;
    bool hasOnlyFailures = false; ///< no file arrived
    QVariantList failures;        ///< {sentence, count, names}: one for each reason
    QStringList failureLines;     ///< all of them: each reason, and below it the paths
    QString subtitle;             ///< how many files failed; empty when none did
    QString organized;
    QString skipped;
    QString errors;
    QString totalTransferred;
    QVariantList timeline; ///< {label, count, share: from 0 to 1}
    QString duration;
    QString mode;
    QString photosVsVideos;
    QString unknownDates;
    QString journalProblem; ///< why the journal of the run is not kept on disk; empty when it is

    QString notices; ///< what is to be known of the run as a whole, a line each; empty when nothing is
    QString proof;   ///< of a copy: for each source, whether all of its media is in the archive, a line each

    /// `manifest` may be null when there is no run. `sawAll` says that the scan could read everything in the
    /// sources.
    static ReportTexts of(const OperationManifest* manifest, std::span<const MediaItem> items,
                          std::string_view journalProblem, bool sawAll);
};

/// The progress of saving a document.
struct ExportState {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(bool isUnderWay MEMBER isUnderWay)
    Q_PROPERTY(bool hasFailed MEMBER hasFailed)
    Q_PROPERTY(QString message MEMBER message)

public:
    bool isUnderWay = false; ///< starts with the question for a file name
    bool hasFailed = false;
    QString message{}; ///< how the last one ended; empty before, and when the user cancelled it
};

/// The texts for an undo that is in question, running or finished.
struct UndoTexts {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(QString forecast MEMBER forecast)
    Q_PROPERTY(bool isUnderWay MEMBER isUnderWay)
    Q_PROPERTY(double fraction MEMBER fraction)
    Q_PROPERTY(QString progress MEMBER progress)
    Q_PROPERTY(QString outcome MEMBER outcome)
    Q_PROPERTY(bool isComplete MEMBER isComplete)
    Q_PROPERTY(bool isOfReport MEMBER isOfReport)
    Q_PROPERTY(QString counts MEMBER counts)
    Q_PROPERTY(QStringList warnings MEMBER warnings)

public:
    QString forecast; ///< what it would leave in place; empty when that is nothing or not known
    bool isUnderWay = false;
    double fraction = 0;     ///< from 0 to 1
    QString progress;        ///< "120 / 4000 files processed"; empty before the first file
    QString outcome;         ///< empty before its end
    bool isComplete = true;  ///< everything was undone
    bool isOfReport = false; ///< it has ended, and it was of the run that is reported
    QString counts;          ///< empty when there was no failure
    QStringList warnings;

    static UndoTexts of(const AppState& state, const LocalizationManager& texts);
};

} // namespace lumeo
