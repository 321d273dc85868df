#pragma once

#include "app/BackgroundJobs.h"
#include "app/Desktop.h"
#include "app/Job.h"
#include "app/PauseSwitch.h"
#include "app/WizardStep.h"
#include "model/MediaItem.h"
#include "model/OrganizationPlan.h"
#include "model/SourceVolume.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "scan/MediaScanner.h"
#include "scan/ScanProgress.h"
#include "transfer/FileOperationEngine.h"
#include "transfer/JournalReader.h"
#include "transfer/LastOperationSummary.h"
#include "transfer/OperationManifest.h"
#include "transfer/OperationProgress.h"
#include "transfer/RunJournals.h"
#include "transfer/RunPreparation.h"
#include "transfer/UndoEngine.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <utility>
#include <vector>

namespace lumeo {

class Preferences;

/// The progress of planning the destinations.
struct PlanningProgress {
    std::int64_t plannedCount = 0;
    std::int64_t totalCount = 0;
    friend bool operator==(const PlanningProgress&, const PlanningProgress&) = default;
};

/// What all parts of the state and its jobs need. Everything must outlive the state.
struct AppEnvironment {
    FileSystem& fileSystem;
    const Clock& clock;
    const Volumes& volumes;
    Preferences& preferences;
    Desktop desktop;
    const RunJournals& journals;
};

/// What was at a source's place at the last check.
enum class SourcePresence { unknown, folder, file, gone };

/// Earlier runs that can be undone. Another of our programs may have started them.
struct RecentRuns {
    std::optional<RunEntry> completed;   ///< the newest run that ran to its end
    std::optional<RunEntry> interrupted; ///< the newest run of all, if it was cut off or cancelled
    friend bool operator==(const RecentRuns&, const RecentRuns&) = default;
};

/// The only controller of the program. It knows the wizard's step, what was chosen and found, and the running
/// jobs. Main thread only. After each change of a field, its signal is emitted.
///
/// Jobs run on separate threads and report through the event loop. The destructor of the state stops them
/// first: a transfer ends at its next chunk and leaves no incomplete file.
class AppState : public QObject {
    Q_OBJECT

public:
    /// A catalogue that never changes. Screens may keep it when a newer one replaces it.
    using Items = std::shared_ptr<const std::vector<MediaItem>>;

    explicit AppState(const AppEnvironment& environment, QObject* parent = nullptr);
    ~AppState() override;

    [[nodiscard]] WizardStep currentStep() const { return currentStep_; }
    [[nodiscard]] const std::set<WizardStep>& completedSteps() const { return completedSteps_; }
    /// A source has its name and place at once, and the figures of its volume when they have been measured.
    [[nodiscard]] const std::vector<SourceVolume>& sources() const { return sources_; }
    /// Checked when a source is added, when the wizard returns to the sources, and with each scan.
    [[nodiscard]] SourcePresence presence(const Uuid& source) const;
    [[nodiscard]] bool isSelectingFolder() const { return isSelectingFolder_; } ///< a chooser is open
    [[nodiscard]] const Items& scannedItems() const { return scannedItems_; }   ///< never null
    [[nodiscard]] bool isScanning() const { return isScanning_; }
    [[nodiscard]] const ScanProgress& scanProgress() const { return scanProgress_; }
    /// The first thousand places that the last scan could not read. The scan's progress counts all of them.
    [[nodiscard]] const std::vector<FileError>& unreadable() const { return unreadable_; }
    [[nodiscard]] const OrganizationPlan& organizationPlan() const { return organizationPlan_; }
    /// Measured soon after it was chosen, and again before each run.
    [[nodiscard]] const std::optional<SourceVolume>& destinationVolume() const { return destinationVolume_; }
    [[nodiscard]] bool isPlanning() const {
        return planning_.isRunning();
    } ///< items are being dated or planned again
    [[nodiscard]] const PlanningProgress& planningProgress() const { return planningProgress_; }
    [[nodiscard]] const OperationProgress& operationProgress() const { return operationProgress_; }
    /// A run was requested and has neither started nor been refused yet.
    [[nodiscard]] bool isStartingOperation() const { return isStartingOperation_; }
    [[nodiscard]] bool isProcessing() const { return isProcessing_; }
    /// The journal of the last run that was not cancelled. Null when there is none.
    [[nodiscard]] const std::shared_ptr<const OperationManifest>& activeManifest() const {
        return activeManifest_;
    }
    /// Why the last requested run did not start, for other reasons than missing space. Absent otherwise.
    [[nodiscard]] const std::optional<RunRefusal>& runRefusal() const { return runRefusal_; }
    /// Why the journal of the current or last run is not kept on disk. Empty when it is.
    [[nodiscard]] const std::string& journalProblem() const { return journalProblem_; }
    /// The place of the journal of `activeManifest`. Empty when it is not on disk.
    [[nodiscard]] const FilePath& activeJournal() const { return activeJournal_; }
    /// Only runs that can be undone and were not dismissed. Read again after each run and undo.
    [[nodiscard]] const RecentRuns& recentRuns() const { return recentRuns_; }
    [[nodiscard]] bool isUndoing() const { return undo_.isRunning(); }
    [[nodiscard]] const UndoProgress& undoProgress() const { return undoProgress_; }
    /// The result of the last undo. Absent before the first undo, and when it was refused.
    [[nodiscard]] const std::optional<UndoResult>& undoResult() const { return undoResult_; }
    /// Why the last undo did not start, as a sentence. Empty otherwise.
    [[nodiscard]] const std::string& undoRefusal() const { return undoRefusal_; }
    /// The journal of the run that was undone last. Empty if that journal is only in memory.
    [[nodiscard]] const FilePath& undoneJournal() const { return undoneJournal_; }
    /// What the undo in question would do. Absent until it is known.
    [[nodiscard]] const std::optional<UndoForecast>& undoForecast() const { return undoForecast_; }
    /// A run or an undo is in progress. Catalogue, plan and results do not change until it ends. False for a
    /// cancelled run, although it may still be working on its last file.
    [[nodiscard]] bool isChangingFiles() const { return isProcessing_ || isUndoing(); }
    /// As stored with the preferences. Absent before the first run.
    [[nodiscard]] std::optional<LastOperationSummary> lastOperationSummary() const;
    [[nodiscard]] bool isDetectingDuplicates() const { return detection_.isRunning(); }
    /// The whole catalogue has been searched for duplicates.
    [[nodiscard]] bool isAnalyzed() const { return isAnalyzed_; }
    [[nodiscard]] const QString& selectedFilter() const { return selectedFilter_; }

    [[nodiscard]] std::int64_t totalFilesCount() const; ///< of `scannedItems`
    /// The bytes that a run would write under the plan's duplicate policy.
    [[nodiscard]] std::int64_t requiredOutputSizeBytes() const;

    [[nodiscard]] bool canProceedToNextStep() const;
    void proceedToNextStep();
    /// Earlier steps are always reachable. Later steps are reachable only if they are completed or show the
    /// current scan or run. The processing step needs a working run or its journal, and the report needs a
    /// journal.
    [[nodiscard]] bool isReachable(WizardStep step) const;
    /// Does nothing when the step is not reachable. Entering the preview plans the items that have no plan.
    void navigateToStep(WizardStep target);

    void promptAddFolderPanel();
    void addSource(const FilePath& url); ///< ignores a source that exists already
    void removeSource(const Uuid& id);
    void clearSources();
    void promptDestinationFolderPanel();
    void setDestination(const FilePath& url); ///< not during a run or an undo

    /// Uses the user's settings, but keeps the destination. If the policy for undated files or the preset has
    /// changed, a job dates and plans the items again. Other changes take effect with the next planning. Does
    /// nothing during a run or an undo.
    void setOrganizationPlan(OrganizationPlan plan);

    void startScan(); ///< not during a run or an undo, nor before a cancelled run has ended
    void pauseScan();
    void resumeScan();
    void cancelScan();

    void runDuplicateDetection();
    void stopDuplicateDetection(); ///< keeps what it has found so far

    /// Gives every item its destination, on this thread. Does nothing when the plan has no destination.
    void calculatePlannedDestinations();
    /// The same as a job, which replaces a job that is still running. `planningFinished` reports its end.
    /// Does nothing when the plan has no destination, and during a run or an undo.
    void startPlanning();
    void cancelPlanning(); ///< the items keep their previous destinations

    /// Leaves the organization step for the preview. The destinations appear there when they are planned.
    void previewChanges();

    /// Starts a run when every item has a destination under the current plan. If not, the items are planned
    /// first, and the start is dropped if the user leaves the step or changes the plan. Refused when the
    /// destination has too little space: see `operationProgress.errorsCount`.
    void startOperation();
    void pauseOperation();
    void resumeOperation();
    void cancelOperation(); ///< also cancels a start that is still waiting

    /// Undoes the run of `activeManifest`, or of a journal on disk, as a job. Does nothing without one, or
    /// during a run or an undo.
    void startUndo();
    void startUndo(const FilePath& journal);
    /// Finds out what these would do, as a job: see `undoForecast`.
    void considerUndo();
    void considerUndo(const FilePath& journal);
    /// The user does not want to see an interrupted run any more.
    void dismissRun(const FilePath& journal);
    void stopUndo(); ///< after the current file; the rest counts as failed and stays

    // Both do nothing during a run or an undo.
    void finishCompletedOperation(); ///< back to the start, with a new plan
    void restartWorkflow();          ///< back to the start, with the same plan and destination

signals:
    void currentStepChanged();
    void completedStepsChanged();
    void sourcesChanged();
    void isSelectingFolderChanged();
    void scannedItemsChanged();
    void isScanningChanged();
    void scanProgressChanged();
    void scanFinished(); ///< its items are there, a part after a cancel; not sent for a replaced scan
    void organizationPlanChanged();
    void destinationVolumeChanged();
    void isPlanningChanged();
    void planningProgressChanged();
    void planningFinished(bool completed); ///< false when cancelled; not sent when a newer job replaced it
    void operationProgressChanged();
    void isStartingOperationChanged();
    void isProcessingChanged();
    void activeManifestChanged();
    void runRefusalChanged();
    void recentRunsChanged();
    void undoForecastChanged();
    void isUndoingChanged();
    void undoProgressChanged();
    void undoResultChanged();
    void lastOperationSummaryChanged();
    /// A run has ended. The journal is passed along; the state itself keeps it only for completed runs.
    void operationFinished(std::shared_ptr<const lumeo::OperationManifest> journal, bool cancelled);
    void isDetectingDuplicatesChanged();
    void selectedFilterChanged();

private:
    /// Stores a value, and emits the signal if the value is new.
    template<class Value>
    void change(Value& field, Value value, void (AppState::*changed)());

    void goTo(WizardStep step);
    void followPreferences();
    void lookAtSources();
    void complete(std::initializer_list<WizardStep> steps);
    void promptFolders(const FolderRequest& request, FolderChooser::Answer answer);
    void replaceItems(std::vector<MediaItem> items);
    /// The same for a new catalogue. Later reports of jobs about the old one are ignored.
    void replaceCatalogue(std::vector<MediaItem> items);
    void goBackToTheStart();
    struct MeasuredDestination {
        SourceVolume volume;
        std::optional<std::uint64_t> device;
    };
    /// Measures the destination as a job and then calls `next`, unless the destination was chosen or measured
    /// again in the meantime.
    void measureDestination(std::function<void(const MeasuredDestination&)> next);
    [[nodiscard]] std::vector<FilePath> sourceRoots() const;

    void setScanPaused(bool paused);
    void showScanPaused(bool paused);
    struct Scanned {
        std::vector<MediaItem> items;
        std::vector<FileError> unreadable{};
        UnknownDatePolicy datedUnder = UnknownDatePolicy::unknownFolder;
    };
    void finishScan(Scanned scanned);
    void finishDuplicateDetection(const Items& analyzed, std::vector<MediaItem> found);
    void outdatePlan();
    void reviseItems();
    void endPlanning(bool isComplete);
    [[nodiscard]] bool canRun() const;
    /// A cancelled run has not ended yet.
    [[nodiscard]] bool isRunEnding() const { return operation_.isRunning() && !isProcessing_; }
    void takeStartBack();
    void startAwaitedOperation();
    void runOrRefuse();
    void prepareAndRun();
    void refuse(RunRefusal refusal);
    void runOperation(const std::shared_ptr<PreparedRun>& prepared);
    void readRecentRuns();
    void showProgress(OperationProgress progress);
    void finishOperation(const std::shared_ptr<const OperationManifest>& journal);
    void setOperationPaused(bool paused);
    void takeBack(std::function<Result<std::shared_ptr<const OperationManifest>, std::string>()> read,
                  const FilePath& journal);
    void consider(std::function<Result<std::shared_ptr<const OperationManifest>, std::string>()> read);
    void finishUndo(Result<UndoResult, std::string> result);

    AppEnvironment environment_;

    WizardStep currentStep_ = WizardStep::sources;
    std::set<WizardStep> completedSteps_;
    std::vector<SourceVolume> sources_;
    std::map<Uuid, SourcePresence> presence_;
    bool isSelectingFolder_ = false;
    Items scannedItems_ = std::make_shared<const std::vector<MediaItem>>();
    bool isScanning_ = false;
    ScanProgress scanProgress_;
    std::vector<FileError> unreadable_;
    OrganizationPlan organizationPlan_;
    bool isModeChosen_ = false; ///< the user chose it for this plan, so the preferences no longer set it
    bool isVerifyChosen_ = false;
    std::optional<SourceVolume> destinationVolume_;
    /// The device of the destination when it was chosen. The run must not write to another device.
    std::optional<std::uint64_t> destinationDevice_;
    PlanningProgress planningProgress_;
    OperationProgress operationProgress_;
    bool isStartingOperation_ = false;
    bool isProcessing_ = false;
    std::shared_ptr<const OperationManifest> activeManifest_;
    std::optional<RunRefusal> runRefusal_;
    std::string journalProblem_;
    FilePath activeJournal_;
    RecentRuns recentRuns_;
    UndoProgress undoProgress_;
    std::optional<UndoResult> undoResult_;
    std::string undoRefusal_;
    FilePath undoneJournal_;
    std::optional<UndoForecast> undoForecast_;
    QString selectedFilter_ = QStringLiteral("all");

    bool isAnalyzed_ = false;
    bool isPlanCurrent_ = false; ///< the items have their destinations under the current plan
    std::shared_ptr<PauseSwitch<MediaScanner>> scanPause_;
    std::shared_ptr<PauseSwitch<FileOperationEngine>> operationPause_;

    Job<ScanProgress> scan_{jobs_, *this};
    Job<> detection_{jobs_, *this};
    Job<std::size_t> planning_{jobs_, *this};
    Job<OperationProgress> operation_{jobs_, *this};
    Job<UndoProgress> undo_{jobs_, *this};
    Job<> measurement_{jobs_, *this};
    Job<> looking_{jobs_, *this};
    Job<> consideration_{jobs_, *this};
    Job<> recentRunsReading_{jobs_, *this};
    BackgroundJobs jobs_{*this}; ///< last: its threads must end before what they work with
};

template<class Value>
void AppState::change(Value& field, Value value, void (AppState::*changed)()) {
    if (field != value) {
        field = std::move(value);
        emit(this->*changed)();
    }
}

} // namespace lumeo
