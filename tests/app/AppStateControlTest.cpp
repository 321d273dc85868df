#include "AppStateFixture.h"

#include <functional>
#include <random>

namespace lumeo {
namespace {

using ::testing::Contains;
using ::testing::Each;
using ::testing::EndsWith;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;
using testing::waitUntil;

/// Tests the jobs of the state while they run.
class AppStateControlTest : public AppStateTest {
protected:
    /// A sanitizer starts its own thread together with the first thread. It must exist before threads are
    /// counted.
    AppStateControlTest() {
        std::jthread([] {}).join();
    }

    void connectRunEnds() {
        QObject::connect(&state(), &AppState::operationFinished,
                         [this](const std::shared_ptr<const OperationManifest>& journal, bool cancelled) {
                             lastJournal_ = journal;
                             wasCancelled_ = cancelled;
                             ++runEnds_;
                         });
    }
    [[nodiscard]] bool awaitRunEnds(int count = 1) {
        return waitUntil([this, count] { return runEnds_ >= count; });
    }

    std::shared_ptr<const OperationManifest> lastJournal_;
    bool wasCancelled_ = false;
    int runEnds_ = 0;
};

TEST_F(AppStateControlTest, KeepsWhatACancelledScanHadFound) {
    fillCard(100);
    int opened = 0;
    const Gate gate(disk_, [&opened](const DiskCall& call) {
        return call.operation == "openForReading" && ++opened == 3;
    });
    state().addSource(card_.path());
    state().startScan();
    ASSERT_TRUE(gate.awaitArrival());
    state().pauseScan();
    EXPECT_TRUE(state().scanProgress().isPaused);
    state().cancelScan();
    EXPECT_FALSE(state().isScanning());
    EXPECT_FALSE(state().scanProgress().isPaused);
    EXPECT_EQ(state().currentStep(), WizardStep::sources);
    EXPECT_THAT(state().completedSteps(), IsEmpty());
    gate.open();

    ASSERT_TRUE(waitUntil([this] { return !state().completedSteps().empty(); }));
    EXPECT_THAT(*state().scannedItems(), SizeIs(2)) << "all but the file in hand";
    EXPECT_TRUE(state().scanProgress().isCancelled);
    EXPECT_EQ(state().currentStep(), WizardStep::sources);
    state().navigateToStep(WizardStep::scanResults);
    EXPECT_EQ(state().currentStep(), WizardStep::scanResults);
}

TEST_F(AppStateControlTest, ForgetsACancelledScanOnceAnotherOneOrAnewStartReplacesIt) {
    fillCard(3);
    {
        const Gate gate(disk_, "openForReading");
        state().addSource(card_.path());
        state().startScan();
        ASSERT_TRUE(gate.awaitArrival());
        state().cancelScan();
        state().startScan();
        ASSERT_TRUE(gate.awaitArrival(2));
    }
    ASSERT_TRUE(waitUntil([this] { return !state().isScanning(); }));
    EXPECT_THAT(*state().scannedItems(), SizeIs(3));

    const auto threads = threadCount();
    {
        const Gate gate(disk_, "openForReading");
        state().startScan();
        ASSERT_TRUE(gate.awaitArrival());
        state().restartWorkflow();
        EXPECT_FALSE(state().isScanning());
    }
    ASSERT_TRUE(comesDownTo(threads));
    EXPECT_THAT(*state().scannedItems(), IsEmpty());
    EXPECT_THAT(state().completedSteps(), IsEmpty());
}

TEST_F(AppStateControlTest, CancelsARunWithinAFileAndHandsItsJournalOut) {
    fillCard(3, 3'000'000);
    connectRunEnds();
    preview();
    const auto before = state().completedSteps();
    const auto card = filesBelow(card_.path());
    const Gate gate(disk_, "write");
    state().startOperation();
    ASSERT_TRUE(gate.awaitArrival());
    EXPECT_EQ(state().currentStep(), WizardStep::processing);
    state().finishCompletedOperation();
    state().restartWorkflow();
    EXPECT_EQ(state().currentStep(), WizardStep::processing) << "not during a run";
    state().cancelOperation();
    EXPECT_FALSE(state().isProcessing());
    EXPECT_EQ(state().currentStep(), WizardStep::preview);
    state().navigateToStep(WizardStep::organization);
    gate.open();

    ASSERT_TRUE(awaitRunEnds());
    EXPECT_TRUE(wasCancelled_);
    EXPECT_TRUE(lastJournal_->isCancelled);
    EXPECT_TRUE(state().operationProgress().isCancelled);
    EXPECT_EQ(state().operationProgress().totalFiles, 3);
    EXPECT_FALSE(state().activeManifest());
    EXPECT_FALSE(state().lastOperationSummary());
    EXPECT_EQ(state().completedSteps(), before);
    EXPECT_EQ(state().currentStep(), WizardStep::organization) << "where the user has gone meanwhile";
    EXPECT_THAT(namesBelow(archive()), IsEmpty());
    EXPECT_EQ(filesBelow(card_.path()), card);
}

TEST_F(AppStateControlTest, KeepsWhatARunWorksOnAndTheWayBackToIt) {
    fillCard(3);
    preview();
    const Gate gate(disk_, "createFile");
    startRun();
    ASSERT_TRUE(gate.awaitArrival());
    const AppState::Items items = state().scannedItems();
    const OrganizationPlan plan = state().organizationPlan();
    state().navigateToStep(WizardStep::sources);
    state().startScan();
    state().setDestination(home_ / "elsewhere");
    choosePolicy(DuplicatePolicy::keepAll);
    choosePolicy(UnknownDatePolicy::useFilesystemDate);
    state().startPlanning();
    state().startOperation();
    EXPECT_FALSE(state().isScanning() || state().isPlanning() || state().isStartingOperation());
    EXPECT_EQ(state().scannedItems(), items);
    EXPECT_EQ(state().organizationPlan(), plan);
    EXPECT_EQ(state().currentStep(), WizardStep::sources);
    state().navigateToStep(WizardStep::processing);
    EXPECT_EQ(state().currentStep(), WizardStep::processing);
    gate.open();
    ASSERT_TRUE(waitUntil([this] { return state().currentStep() == WizardStep::report; }));
    EXPECT_THAT(namesBelow(archive()), SizeIs(3));
}

TEST_F(AppStateControlTest, TakesARunBackWhileNothingElseMayTouchItsFiles) {
    fillCard(3);
    preview();
    runToTheEnd();
    const auto journal = state().activeManifest();
    {
        const Gate gate(disk_, "removeFile");
        state().startUndo();
        ASSERT_TRUE(gate.awaitArrival());
        state().navigateToStep(WizardStep::preview);
        state().startUndo();
        state().startOperation();
        state().startScan();
        state().restartWorkflow();
        state().finishCompletedOperation();
        EXPECT_FALSE(state().isStartingOperation() || state().isScanning() || state().isPlanning());
        EXPECT_EQ(state().currentStep(), WizardStep::preview);
        EXPECT_THAT(*state().scannedItems(), SizeIs(3));
    }
    ASSERT_TRUE(waitUntil([this] { return !state().isUndoing() && !state().isPlanning(); }));
    EXPECT_EQ(state().activeManifest(), journal);
    ASSERT_TRUE(state().undoResult());
    EXPECT_EQ(state().undoResult()->restoredCount, 3);
    EXPECT_EQ(state().undoProgress().processedCount, 3);
    EXPECT_THAT(namesBelow(archive()), IsEmpty());

    runToTheEnd();
    EXPECT_FALSE(state().undoResult()) << "of another run";
    EXPECT_THAT(namesBelow(archive()), SizeIs(3));
}

TEST_F(AppStateControlTest, PausesARunFromItsFirstMomentOn) {
    fillCard(20);
    preview();
    QObject::connect(&state(), &AppState::isProcessingChanged, &state(), &AppState::pauseOperation);
    startRun();
    EXPECT_TRUE(state().operationProgress().isPaused);
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_LE(namesBelow(archive()).size(), 2U)
        << "the file that was begun and one that may meet no pause yet";
    state().resumeOperation();
    ASSERT_TRUE(waitUntil([this] { return state().currentStep() == WizardStep::report; }));
    EXPECT_THAT(namesBelow(archive()), SizeIs(20));
    EXPECT_FALSE(state().operationProgress().isPaused);
}

TEST_F(AppStateControlTest, StartsTheNextRunOnceTheCancelledOneHasEnded) {
    fillCard(3);
    connectRunEnds();
    preview();
    const Gate gate(disk_, "createFile");
    state().startOperation();
    ASSERT_TRUE(gate.awaitArrival());
    state().cancelOperation();
    state().startOperation();
    EXPECT_FALSE(state().isProcessing());
    gate.open();
    ASSERT_TRUE(awaitRunEnds(2));
    EXPECT_FALSE(wasCancelled_);
    EXPECT_EQ(state().currentStep(), WizardStep::report);
    EXPECT_EQ(state().operationProgress().processedCount, 3);
    EXPECT_FALSE(state().operationProgress().isCancelled);
    EXPECT_THAT(namesBelow(archive()), SizeIs(3));
}

TEST_F(AppStateControlTest, PlansFirstWhenTheRunIsAskedForTooEarly) {
    fillCard(3);
    scanCard();
    state().setDestination(archive());
    state().startOperation();
    EXPECT_FALSE(state().isProcessing());
    ASSERT_TRUE(waitUntil([this] { return state().currentStep() == WizardStep::report; }));
    EXPECT_EQ(state().operationProgress().verifiedCount, 3);
}

TEST_F(AppStateControlTest, TakesARunThatWasAskedForBackWhenThePlanChanges) {
    fillCard(3);
    connectRunEnds();
    const auto disturb = [this](const std::function<void()>& change) {
        preview();
        choosePolicy(DuplicatePolicy::keepAll);
        choosePolicy(DuplicatePolicy::skipDuplicates);
        state().startOperation();
        ASSERT_TRUE(state().isPlanning());
        change();
        ASSERT_TRUE(waitUntil([this] { return !state().isPlanning(); }));
        EXPECT_FALSE(state().isProcessing());
    };
    disturb([this] { choosePolicy(DuplicatePolicy::keepAll); });
    disturb([this] { state().setDestination(home_ / "Archive/elsewhere"); });
    disturb([this] { state().navigateToStep(WizardStep::organization); });
    disturb([this] { state().cancelPlanning(); });
    disturb([this] {
        scanCard();
        state().startPlanning();
    });
    EXPECT_EQ(runEnds_, 0);
    EXPECT_FALSE(std::filesystem::exists(archive().bytes()));
}

TEST_F(AppStateControlTest, PlansByTheLatestWishOnly) {
    card_.write("IMG_20210314_153045.jpg", "photo");
    preview();
    int completed = 0;
    int cancelled = 0;
    QObject::connect(&state(), &AppState::planningFinished,
                     [&](bool isComplete) { ++(isComplete ? completed : cancelled); });
    OrganizationPlan plan = state().organizationPlan();
    for (const OrganizationPreset preset :
         {OrganizationPreset::exactDate, OrganizationPreset::yearAndMonth, OrganizationPreset::yearOnly}) {
        plan.preset = preset;
        state().setOrganizationPlan(plan);
    }
    ASSERT_TRUE(waitUntil([&] { return completed > 0; }));
    EXPECT_EQ(places(), std::vector<std::string>{"2021/IMG_20210314_153045.jpg"});
    EXPECT_EQ(completed, 1);
    EXPECT_EQ(cancelled, 0);

    plan.preset = OrganizationPreset::exactDate;
    state().setOrganizationPlan(plan);
    state().cancelPlanning();
    EXPECT_FALSE(state().isPlanning());
    EXPECT_EQ(cancelled, 1);
    EXPECT_EQ(places(), std::vector<std::string>{"2021/IMG_20210314_153045.jpg"});
    state().calculatePlannedDestinations();
    EXPECT_THAT(places(), Not(Contains("2021/IMG_20210314_153045.jpg")));
}

TEST_F(AppStateControlTest, MarksDuplicatesAmongItemsThatWerePlannedMeanwhile) {
    card_.write("a.jpg", "same");
    card_.write("b.jpg", "same");
    scanCard();
    {
        const Gate gate(disk_, "openForReading");
        state().runDuplicateDetection();
        state().runDuplicateDetection();
        ASSERT_TRUE(gate.awaitArrival());
        state().setDestination(archive());
        state().calculatePlannedDestinations();
    }
    ASSERT_TRUE(waitUntil([this] { return !state().isDetectingDuplicates(); }));
    EXPECT_EQ(counts().duplicates, 2);
    EXPECT_EQ(places(), (std::vector<std::string>{"_Unknown Date/a.jpg", "_Unknown Date/b.jpg"}));

    const Gate gate(disk_, "openForReading");
    state().runDuplicateDetection();
    ASSERT_TRUE(gate.awaitArrival());
    state().startScan();
    EXPECT_FALSE(state().isDetectingDuplicates()) << "its files are no longer the catalogue's";
    gate.open();
    ASSERT_TRUE(waitUntil([this] { return !state().isScanning(); }));
    findDuplicates();
    EXPECT_EQ(counts().duplicates, 2);
}

TEST_F(AppStateControlTest, EndsItsJobsWhenItIsDestroyed) {
    fillCard(200, 100);
    const auto card = filesBelow(card_.path());
    const auto threads = threadCount();
    slowDown(std::chrono::microseconds(300));
    state().addSource(card_.path());
    state().startScan();
    ASSERT_TRUE(waitUntil([this] { return state().scanProgress().totalScannedCount > 0; }));
    restart();
    EXPECT_TRUE(comesDownTo(threads));

    slowDown({});
    preview();
    slowDown(std::chrono::microseconds(300));
    state().runDuplicateDetection();
    state().startPlanning();
    restart();
    EXPECT_TRUE(comesDownTo(threads));

    for (const bool isPaused : {false, true}) {
        slowDown({});
        preview();
        slowDown(std::chrono::microseconds(300));
        state().startOperation();
        ASSERT_TRUE(waitUntil([this] { return state().operationProgress().processedCount > 0; }));
        if (isPaused) {
            state().pauseOperation();
        }
        restart();
        EXPECT_TRUE(comesDownTo(threads));
        EXPECT_THAT(namesBelow(archive()), Each(Not(EndsWith(".partial"))));
    }
    EXPECT_LT(filesBelow(archive()).size(), card.size());

    slowDown({});
    preview();
    runToTheEnd();
    slowDown(std::chrono::microseconds(300));
    state().startUndo();
    ASSERT_TRUE(waitUntil([this] { return state().undoProgress().processedCount > 0; }));
    restart();
    EXPECT_TRUE(comesDownTo(threads));
    EXPECT_FALSE(filesBelow(archive()).empty()) << "it ended with the file in hand";
    EXPECT_EQ(filesBelow(card_.path()), card);
}

TEST_F(AppStateControlTest, OffersTheLastRunsAgainAfterARestart) {
    fillCard(3);
    preview();
    OrganizationPlan plan = state().organizationPlan();
    plan.operationMode = OperationMode::move;
    state().setOrganizationPlan(plan);
    runToTheEnd();
    ASSERT_TRUE(namesBelow(card_.path()).empty());
    restart();
    ASSERT_TRUE(testing::waitUntil([this] { return state().recentRuns().completed.has_value(); }));
    EXPECT_EQ(state().recentRuns().interrupted, std::nullopt);
    const FilePath journal = state().recentRuns().completed->journal;
    state().considerUndo(journal);
    ASSERT_TRUE(testing::waitUntil([this] { return state().undoForecast().has_value(); }));
    EXPECT_EQ(state().undoForecast(), (UndoForecast{3, 0}));
    state().startUndo(journal);
    ASSERT_TRUE(testing::waitUntil([this] { return state().undoResult().has_value(); }));
    EXPECT_EQ(namesBelow(card_.path()).size(), 3U);
    ASSERT_TRUE(testing::waitUntil([this] { return !state().recentRuns().completed; }));

    // A run that was cancelled, and then one that the user does not want to see any more.
    fillCard(100);
    preview();
    const Gate fourthFile(disk_, [created = 0](const DiskCall& call) mutable {
        return call.operation == "createFile" && ++created > 3;
    });
    startRun();
    ASSERT_TRUE(fourthFile.awaitArrival());
    state().cancelOperation();
    EXPECT_FALSE(state().isChangingFiles());
    state().startScan(); // not before the run has ended
    EXPECT_FALSE(state().isScanning());
    fourthFile.open();
    ASSERT_TRUE(testing::waitUntil([this] { return state().recentRuns().interrupted.has_value(); }));
    EXPECT_EQ(state().recentRuns().interrupted->totalFiles, 100);
    EXPECT_GE(state().recentRuns().interrupted->verifiedFiles, 3);
    state().dismissRun(state().recentRuns().interrupted->journal);
    EXPECT_TRUE(testing::waitUntil([this] { return !state().recentRuns().interrupted; }));
}

TEST_F(AppStateControlTest, RefusesARunWhoseArchiveIsInUseOrOnAnotherDriveByNow) {
    fillCard(2);
    preview();
    {
        ASSERT_TRUE(realDisk_.createFolders(archive()));
        const auto held = realDisk_.lock(archive());
        state().startOperation();
        ASSERT_TRUE(testing::waitUntil([this] { return state().runRefusal().has_value(); }));
        EXPECT_EQ(state().runRefusal()->reason, RunRefusal::Reason::archiveInUse);
        EXPECT_EQ(state().currentStep(), WizardStep::preview);
        EXPECT_FALSE(state().isStartingOperation());
    }
    const TempFolder elsewhere{FilePath("/dev/shm")};
    if (realDisk_.status(elsewhere.path())->identity.device != realDisk_.status(archive())->identity.device) {
        std::filesystem::remove(archive().bytes());
        std::filesystem::create_directory_symlink(elsewhere.path().bytes(), archive().bytes());
        state().startOperation();
        ASSERT_TRUE(testing::waitUntil([this] {
            return state().runRefusal() && state().runRefusal()->reason == RunRefusal::Reason::archiveGone;
        }));
        EXPECT_TRUE(namesBelow(elsewhere.path()).empty());
        std::filesystem::remove(archive().bytes());
    }
    runToTheEnd();
    EXPECT_EQ(state().runRefusal(), std::nullopt);
    EXPECT_EQ(namesBelow(card_.path()).size(), 2U);
}

TEST_F(AppStateControlTest, SurvivesAThousandRandomCommands) {
    fillCard(30, 2000);
    const auto card = filesBelow(card_.path());
    connectRunEnds();
    preview();
    const auto threads = threadCount();
    slowDown(std::chrono::microseconds(20));
    std::mt19937 random(20210314); // NOLINT(cert-msc32-c, cert-msc51-cpp): the same walk every time
    using Commands = std::vector<std::function<void()>>;
    const Commands runCommands{
        [this] { state().startOperation(); },
        [this] { state().pauseOperation(); },
        [this] { state().resumeOperation(); },
        [this] { state().cancelOperation(); },
        [this] { state().runDuplicateDetection(); },
        [this] { state().startPlanning(); },
        [this] { state().startUndo(); },
    };
    Commands allCommands = runCommands;
    allCommands.insert(allCommands.end(),
                       {[this] { state().startScan(); }, [this] { state().pauseScan(); },
                        [this] { state().resumeScan(); }, [this] { state().cancelScan(); }});
    const auto give = [&random](const Commands& commands, int count) {
        for (; count > 0; --count) {
            commands[random() % commands.size()]();
            const auto until = std::chrono::steady_clock::now() + std::chrono::microseconds(random() % 2000);
            do {
                QCoreApplication::processEvents();
            } while (std::chrono::steady_clock::now() < until);
        }
    };
    constexpr int mostRounds = 300; // a run takes longer to end on a busy machine
    for (int round = 0; round < 10 || (runEnds_ == 0 && round < mostRounds); ++round) {
        give(allCommands, 40);
        state().resumeScan();
        scanCard();
        give(runCommands, 60);
    }
    EXPECT_GT(runEnds_, 0);
    slowDown({});
    state().cancelScan();
    state().cancelOperation();
    ASSERT_TRUE(waitUntil([this, threads] {
        return threadCount() <= threads && !state().isScanning() && !state().isPlanning() &&
               !state().isChangingFiles() && !state().isDetectingDuplicates();
    }));
    QCoreApplication::processEvents(); // events that the last thread has left
    EXPECT_THAT(namesBelow(archive()), Each(Not(EndsWith(".partial"))));
    EXPECT_EQ(filesBelow(card_.path()), card);

    state().restartWorkflow();
    preview();
    runToTheEnd();
    EXPECT_EQ(filesBelow(archive().appending("_Unknown Date")), card) << "nothing twice, nothing half";
}

} // namespace
} // namespace lumeo
