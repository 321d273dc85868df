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

/// How far the planning of the destinations has come.
struct PlanningProgress {
    std::int64_t plannedCount = 0;
    std::int64_t totalCount = 0;
    friend bool operator==(const PlanningProgress&, const PlanningProgress&) = default;
};

/// What all parts of the state and its jobs work with; all must outlive the state.
struct AppEnvironment {
    FileSystem& fileSystem;
    const Clock& clock;
    const Volumes& volumes;
    Preferences& preferences;
    Desktop desktop;
    const RunJournals& journals;
};

/// What stood at a source's place when it was looked at last.
enum class SourcePresence { unknown, folder, file, gone };

/// Runs of earlier, be it by another program of ours, that may be taken back.
struct RecentRuns {
    std::optional<RunEntry> completed;   ///< the newest one that ran to its end
    std::optional<RunEntry> interrupted; ///< the newest one of all, when it was cut off or cancelled
    friend bool operator==(const RecentRuns&, const RecentRuns&) = default;
};

/// The one controller of the program: where the wizard stands, what was chosen and found, and the jobs
/// that are running. Main thread only; every change of a field is announced by its signal once it is
/// made.
///
/// Jobs work on threads of their own and come back through the event loop. Destroying the state stops
/// them first: a transfer ends at its next chunk and leaves nothing half made.
class AppState : public QObject {
    Q_OBJECT

public:
    /// A catalogue that nobody changes any more: screens may keep it while a newer one takes its place.
    using Items = std::shared_ptr<const std::vector<MediaItem>>;

    explicit AppState(const AppEnvironment& environment, QObject* parent = nullptr);
    ~AppState() override;

    [[nodiscard]] WizardStep currentStep() const { return currentStep_; }
    [[nodiscard]] const std::set<WizardStep>& completedSteps() const { return completedSteps_; }
    /// Each has its name and place at once, and the figures of its volume once they are measured.
    [[nodiscard]] const std::vector<SourceVolume>& sources() const { return sources_; }
    /// Looked at when a source is added, when the wizard comes back to the sources, and with each scan.
    [[nodiscard]] SourcePresence presence(const Uuid& source) const;
    [[nodiscard]] bool isSelectingFolder() const { return isSelectingFolder_; } ///< a chooser is open
    [[nodiscard]] const Items& scannedItems() const { return scannedItems_; }   ///< never null
    [[nodiscard]] bool isScanning() const { return isScanning_; }
    [[nodiscard]] const ScanProgress& scanProgress() const { return scanProgress_; }
    /// The first thousand places that the last scan could not read; all of them are counted in its progress.
    [[nodiscard]] const std::vector<FileError>& unreadable() const { return unreadable_; }
    [[nodiscard]] const OrganizationPlan& organizationPlan() const { return organizationPlan_; }
    /// Measured a moment after it was chosen, and again before each run.
    [[nodiscard]] const std::optional<SourceVolume>& destinationVolume() const { return destinationVolume_; }
    [[nodiscard]] bool isPlanning() const {
        return planning_.isRunning();
    } ///< items are being dated or planned anew
    [[nodiscard]] const PlanningProgress& planningProgress() const { return planningProgress_; }
    [[nodiscard]] const OperationProgress& operationProgress() const { return operationProgress_; }
    /// A run was asked for and has neither begun nor been refused yet.
    [[nodiscard]] bool isStartingOperation() const { return isStartingOperation_; }
    [[nodiscard]] bool isProcessing() const { return isProcessing_; }
    /// The journal of the last run that was not cancelled; null when there is none.
    [[nodiscard]] const std::shared_ptr<const OperationManifest>& activeManifest() const {
        return activeManifest_;
    }
    /// Why the run that was asked for last was not begun, other than for want of room; absent otherwise.
    [[nodiscard]] const std::optional<RunRefusal>& runRefusal() const { return runRefusal_; }
    /// Why the journal of the run that works, or worked last, is not kept on disk; empty when it is.
    [[nodiscard]] const std::string& journalProblem() const { return journalProblem_; }
    /// Where the journal of `activeManifest` is kept; empty when it is not.
    [[nodiscard]] const FilePath& activeJournal() const { return activeJournal_; }
    /// As far as they can be undone and were not dismissed. Read anew after each run and undo.
    [[nodiscard]] const RecentRuns& recentRuns() const { return recentRuns_; }
    [[nodiscard]] bool isUndoing() const { return undo_.isRunning(); }
    [[nodiscard]] const UndoProgress& undoProgress() const { return undoProgress_; }
    /// How the last undo ended; absent before, and when it was refused.
    [[nodiscard]] const std::optional<UndoResult>& undoResult() const { return undoResult_; }
    /// Why the last undo was not begun, as a sentence; empty otherwise.
    [[nodiscard]] const std::string& undoRefusal() const { return undoRefusal_; }
    /// The journal of the run that the last undo was of; empty for one that is kept in memory only.
    [[nodiscard]] const FilePath& undoneJournal() const { return undoneJournal_; }
    /// What the undo that is being considered would do; absent until it is known.
    [[nodiscard]] const std::optional<UndoForecast>& undoForecast() const { return undoForecast_; }
    /// A run or an undo is under way: catalogue, plan and results stay as they are until it ends. Of a
    /// cancelled run it is no longer said, though it may still be at its last file.
    [[nodiscard]] bool isChangingFiles() const { return isProcessing_ || isUndoing(); }
    /// As stored with the preferences; absent before the first run.
    [[nodiscard]] std::optional<LastOperationSummary> lastOperationSummary() const;
    [[nodiscard]] bool isDetectingDuplicates() const { return detection_.isRunning(); }
    /// All of the catalogue has been looked through for duplicates.
    [[nodiscard]] bool isAnalyzed() const { return isAnalyzed_; }
    [[nodiscard]] const QString& selectedFilter() const { return selectedFilter_; }

    [[nodiscard]] std::int64_t totalFilesCount() const; ///< of `scannedItems`
    /// What a run would write under the plan's duplicate policy.
    [[nodiscard]] std::int64_t requiredOutputSizeBytes() const;

    [[nodiscard]] bool canProceedToNextStep() const;
    void proceedToNextStep();
    /// Back always; forward only to completed steps and to the scan or run that is under way. To a run only
    /// while it works or its journal is there, to the report only with a journal.
    [[nodiscard]] bool isReachable(WizardStep step) const;
    /// Nothing happens when the step is out of reach. Entering the preview plans what is not planned.
    void navigateToStep(WizardStep target);

    void promptAddFolderPanel();
    void addSource(const FilePath& url); ///< a source that is there already is ignored
    void removeSource(const Uuid& id);
    void clearSources();
    void promptDestinationFolderPanel();
    void setDestination(const FilePath& url); ///< not during a run or an undo

    /// Takes over the user's settings; the destination stays as it is. Items are dated and planned again,
    /// as a job, when the policy for undated files or the preset changed; other changes reach their
    /// places with the next planning. Nothing happens during a run or an undo.
    void setOrganizationPlan(OrganizationPlan plan);

    void startScan(); ///< not during a run or an undo, nor before a cancelled run has ended
    void pauseScan();
    void resumeScan();
    void cancelScan();

    void runDuplicateDetection();
    void stopDuplicateDetection(); ///< what it found so far is kept

    /// Gives every item its place, on this thread; nothing happens without a destination.
    void calculatePlannedDestinations();
    /// The same as a job, which takes the place of one that is still running. `planningFinished` tells
    /// its end. Nothing happens without a destination, or during a run or an undo.
    void startPlanning();
    void cancelPlanning(); ///< items keep the places that they had

    /// Leaves the organization step for the preview, where the places appear once they are planned.
    void previewChanges();

    /// Begins once every item has its place under the present plan: while that is not so it is planned
    /// first, unless the user leaves the step or changes the plan meanwhile. Refused when the destination
    /// has no room: see `operationProgress.errorsCount`.
    void startOperation();
    void pauseOperation();
    void resumeOperation();
    void cancelOperation(); ///< takes one back that has not begun, too

    /// Takes the run of `activeManifest`, or that of a journal on disk, back, as a job. Nothing happens
    /// without one, or while a run or an undo is under way.
    void startUndo();
    void startUndo(const FilePath& journal);
    /// Finds out what these would do, as a job: see `undoForecast`.
    void considerUndo();
    void considerUndo(const FilePath& journal);
    /// The user does not want to hear of an interrupted run any more.
    void dismissRun(const FilePath& journal);
    void stopUndo(); ///< after the file in hand; the rest counts as failed and stays

    // Both do nothing during a run or an undo.
    void finishCompletedOperation(); ///< back to the start, with a new plan
    void restartWorkflow();          ///< back to the start, with the plan and destination as they are

signals:
    void currentStepChanged();
    void completedStepsChanged();
    void sourcesChanged();
    void isSelectingFolderChanged();
    void scannedItemsChanged();
    void isScanningChanged();
    void scanProgressChanged();
    void scanFinished(); ///< its items have come, part of them when cancelled; not sent of a replaced scan
    void organizationPlanChanged();
    void destinationVolumeChanged();
    void isPlanningChanged();
    void planningProgressChanged();
    void planningFinished(bool completed); ///< false when cancelled; not sent when replaced by a newer job
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
    /// A run has come back, with its journal, which the state itself keeps of completed runs only.
    void operationFinished(std::shared_ptr<const lumeo::OperationManifest> journal, bool cancelled);
    void isDetectingDuplicatesChanged();
    void selectedFilterChanged();

private:
    /// Stores a value and announces it, if it is a new one.
    template<class Value>
    void change(Value& field, Value value, void (AppState::*changed)());

    void goTo(WizardStep step);
    void followPreferences();
    void lookAtSources();
    void complete(std::initializer_list<WizardStep> steps);
    void promptFolders(const FolderRequest& request, FolderChooser::Answer answer);
    void replaceItems(std::vector<MediaItem> items);
    /// The same with other files: what jobs still have to say about the old ones no longer counts.
    void replaceCatalogue(std::vector<MediaItem> items);
    void goBackToTheStart();
    struct MeasuredDestination {
        SourceVolume volume;
        std::optional<std::uint64_t> device;
    };
    /// Measures the destination as a job and then goes on with `next`, unless it was chosen or measured
    /// again meanwhile.
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
    /// A cancelled run has not come back yet.
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
    bool isModeChosen_ = false; ///< by the user for this plan: the preferences no longer preset it
    bool isVerifyChosen_ = false;
    std::optional<SourceVolume> destinationVolume_;
    /// What the destination lay on when it was chosen: the run must not go anywhere else.
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
    bool isPlanCurrent_ = false; ///< the items have their places under the present plan
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
    BackgroundJobs jobs_{*this}; ///< last: its threads end before what they work with
};

template<class Value>
void AppState::change(Value& field, Value value, void (AppState::*changed)()) {
    if (field != value) {
        field = std::move(value);
        emit(this->*changed)();
    }
}

} // namespace lumeo
