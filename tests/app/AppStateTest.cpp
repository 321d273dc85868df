#include "AppStateFixture.h"
#include "model/SourceVolume.h"

namespace lumeo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::SizeIs;
using testing::waitUntil;

TEST_F(AppStateTest, GoesForwardByTheRulesAndBackFreely) {
    EXPECT_FALSE(state().canProceedToNextStep()) << "no sources";
    state().proceedToNextStep();
    state().navigateToStep(WizardStep::preview);
    state().startScan();
    EXPECT_EQ(state().currentStep(), WizardStep::sources);
    EXPECT_THAT(state().completedSteps(), IsEmpty());

    scanCard();
    EXPECT_EQ(state().currentStep(), WizardStep::scanResults);
    EXPECT_THAT(state().completedSteps(), ElementsAre(WizardStep::sources, WizardStep::scanResults));
    EXPECT_FALSE(state().canProceedToNextStep()) << "an empty card";

    card_.write("IMG_20210314_153045.jpg", "photo");
    scanCard();
    state().proceedToNextStep();
    state().previewChanges();
    EXPECT_EQ(state().currentStep(), WizardStep::organization) << "nowhere to go to";
    state().startOperation();
    EXPECT_FALSE(state().isProcessing());
    state().proceedToNextStep();
    state().navigateToStep(WizardStep::sources);
    state().navigateToStep(WizardStep::preview);
    EXPECT_EQ(state().currentStep(), WizardStep::sources) << "the preview was never passed";
    state().navigateToStep(WizardStep::organization);
    EXPECT_EQ(state().currentStep(), WizardStep::organization);

    state().proceedToNextStep();
    state().proceedToNextStep();
    ASSERT_EQ(state().currentStep(), WizardStep::processing);
    EXPECT_FALSE(state().canProceedToNextStep());
    state().proceedToNextStep();
    EXPECT_EQ(state().currentStep(), WizardStep::processing);
}

TEST_F(AppStateTest, TakesEachSourceOnce) {
    int announced = 0;
    QObject::connect(&state(), &AppState::sourcesChanged, [&announced] { ++announced; });
    card_.write("below/file", "");
    state().addSource(card_.path());
    state().addSource(FilePath(card_.path().bytes() + "/./below/../"));
    EXPECT_THAT(state().sources(), SizeIs(1));
    EXPECT_EQ(announced, 1);
    state().addSource(card_ / "below");
    state().removeSource(state().sources().front().id);
    ASSERT_THAT(state().sources(), SizeIs(1));
    EXPECT_EQ(state().sources().front().url, card_ / "below");
    state().clearSources();
    EXPECT_THAT(state().sources(), IsEmpty());
    EXPECT_EQ(announced, 4);
}

TEST_F(AppStateTest, AsksForFoldersOneChooserAtATime) {
    desktop_.folders = {card_.path(), home_.path(), card_.path()};
    state().promptAddFolderPanel();
    EXPECT_TRUE(state().isSelectingFolder());
    EXPECT_TRUE(desktop_.lastRequest.allowsSeveral);
    state().promptDestinationFolderPanel();
    EXPECT_TRUE(desktop_.lastRequest.allowsSeveral) << "the first one is still open";
    desktop_.answerFolders();
    EXPECT_FALSE(state().isSelectingFolder());
    EXPECT_THAT(state().sources(), SizeIs(2));

    desktop_.folders = {};
    state().promptDestinationFolderPanel();
    desktop_.answerFolders();
    EXPECT_EQ(state().organizationPlan().destinationURL, std::nullopt);
    desktop_.folders = {archive()};
    state().promptDestinationFolderPanel();
    EXPECT_TRUE(desktop_.lastRequest.allowsCreation);
    desktop_.answerFolders();
    EXPECT_EQ(state().organizationPlan().destinationURL, archive());
    EXPECT_TRUE(waitUntil([this] { return state().destinationVolume()->freeSpaceBytes == 1'000'000'000; }));

    state().promptAddFolderPanel();
    restart();
    desktop_.answerFolders(); // nobody is waiting
    EXPECT_THAT(state().sources(), IsEmpty());
}

TEST_F(AppStateTest, StartsAnewWithOrWithoutThePlan) {
    fillCard(2);
    preview();
    choosePolicy(DuplicatePolicy::keepAll);
    runToTheEnd();
    const auto journal = state().activeManifest();
    state().restartWorkflow();
    EXPECT_EQ(state().currentStep(), WizardStep::sources);
    EXPECT_THAT(state().completedSteps(), IsEmpty());
    EXPECT_THAT(*state().scannedItems(), IsEmpty());
    EXPECT_EQ(state().organizationPlan().duplicatePolicy, DuplicatePolicy::keepAll);
    EXPECT_EQ(state().organizationPlan().destinationURL, archive());
    EXPECT_TRUE(state().destinationVolume());
    EXPECT_TRUE(state().operationProgress().isCompleted);

    scanCard();
    state().finishCompletedOperation();
    EXPECT_THAT(*state().scannedItems(), IsEmpty());
    EXPECT_EQ(state().organizationPlan(), OrganizationPlan());
    EXPECT_FALSE(state().destinationVolume());
    EXPECT_EQ(state().operationProgress(), OperationProgress());
    EXPECT_THAT(state().sources(), SizeIs(1));
    EXPECT_EQ(state().scanProgress().photosCount, 2);
    EXPECT_EQ(state().activeManifest(), journal);
    EXPECT_TRUE(state().lastOperationSummary());
}

TEST_F(AppStateTest, CompletesARunAndRemembersIt) {
    card_.write("IMG_20210314_153045.jpg", "dated");
    card_.write("a/undated.mov", "undated");
    preview();
    runToTheEnd();
    EXPECT_THAT(filesBelow(archive()),
                ElementsAre(std::pair("2021/2021-03 March/IMG_20210314_153045.jpg", "dated"),
                            std::pair("_Unknown Date/undated.mov", "undated")));
    EXPECT_FALSE(state().isProcessing());
    EXPECT_EQ(state().operationProgress().verifiedCount, 2);
    ASSERT_TRUE(state().activeManifest());
    EXPECT_THAT(state().activeManifest()->items, SizeIs(2));
    EXPECT_THAT(state().completedSteps(), IsSupersetOf({WizardStep::preview, WizardStep::processing}));
    for (const WizardStep step :
         {WizardStep::preview, WizardStep::processing, WizardStep::sources, WizardStep::report}) {
        state().navigateToStep(step);
        EXPECT_EQ(state().currentStep(), step);
    }

    const auto summary = state().lastOperationSummary();
    ASSERT_TRUE(summary);
    EXPECT_EQ(summary->verifiedCount, 2);
    restart();
    ASSERT_TRUE(state().lastOperationSummary());
    EXPECT_EQ(state().lastOperationSummary()->verifiedCount, 2);
}

TEST_F(AppStateTest, LeadsOnlyToRunsThatThereAre) {
    fillCard(3);
    preview();
    runToTheEnd();
    state().navigateToStep(WizardStep::preview);
    EXPECT_TRUE(state().isReachable(WizardStep::processing) && state().isReachable(WizardStep::report));
    state().setDestination(home_ / "elsewhere");
    const Gate gate(disk_, "createFile");
    startRun();
    EXPECT_TRUE(state().isReachable(WizardStep::processing));
    EXPECT_FALSE(state().isReachable(WizardStep::report)) << "of the run before, whose journal is gone";
    state().cancelOperation();
    gate.open();
    EXPECT_FALSE(state().isReachable(WizardStep::processing) || state().isReachable(WizardStep::report));
    ASSERT_TRUE(waitUntil([this] { return state().operationProgress().isCancelled; }));
    ASSERT_TRUE(waitUntil([this] {
        state().startScan();
        return state().isScanning();
    }));
    EXPECT_FALSE(state().operationProgress().isCancelled) << "of a catalogue that is no more";
}

TEST_F(AppStateTest, ThePreferencesPresetWhatTheUserHasNotChosenForThePlan) {
    preferences().setDefaultOperation(OperationMode::move);
    preferences().setVerifyTransfers(false);
    EXPECT_EQ(state().organizationPlan().operationMode, OperationMode::move);
    EXPECT_FALSE(state().organizationPlan().verifyTransfers);
    OrganizationPlan plan = state().organizationPlan();
    plan.operationMode = OperationMode::copy;
    state().setOrganizationPlan(plan);
    preferences().setVerifyTransfers(true);
    preferences().setDefaultOperation(OperationMode::copy);
    preferences().setDefaultOperation(OperationMode::move);
    EXPECT_EQ(state().organizationPlan().operationMode, OperationMode::copy) << "as the user chose";
    EXPECT_TRUE(state().organizationPlan().verifyTransfers);
    state().finishCompletedOperation();
    EXPECT_EQ(state().organizationPlan().operationMode, OperationMode::move);
}

TEST_F(AppStateTest, SeesWhatStandsAtTheSources) {
    const FilePath photo = card_.write("photo.jpg", "one");
    state().addSource(card_.path());
    state().addSource(photo);
    const auto is = [this](std::size_t source, SourcePresence presence) {
        return waitUntil([&] { return state().presence(state().sources()[source].id) == presence; });
    };
    EXPECT_TRUE(is(0, SourcePresence::folder) && is(1, SourcePresence::file));
    std::filesystem::remove(photo.bytes());
    state().startScan();
    EXPECT_TRUE(is(1, SourcePresence::gone));
    ASSERT_TRUE(waitUntil([this] { return !state().isScanning(); }));
    ASSERT_THAT(state().unreadable(), SizeIs(1));
    EXPECT_EQ(state().unreadable()[0].path, photo);
}

TEST_F(AppStateTest, DoesNotWaitForAVolumeThatSleeps) {
    fillCard(1);
    volumes_.isAsleep = true;
    state().addSource(card_.path());
    state().addSource(home_.path());
    state().setDestination(archive());
    ASSERT_THAT(state().sources(), SizeIs(2));
    EXPECT_EQ(state().sources().front().name, card_.path().lastComponent());
    EXPECT_FALSE(state().sources().front().freeSpaceBytes);
    EXPECT_EQ(state().destinationVolume()->name, "Archive");
    state().removeSource(state().sources().back().id);
    volumes_.wake();
    EXPECT_TRUE(waitUntil([this] {
        return state().sources().front().freeSpaceBytes && state().destinationVolume()->freeSpaceBytes;
    }));
    EXPECT_THAT(state().sources(), SizeIs(1)) << "what was removed stays so";

    preview();
    volumes_.isAsleep = true;
    state().startOperation();
    EXPECT_TRUE(state().isStartingOperation());
    state().navigateToStep(WizardStep::organization);
    EXPECT_FALSE(state().isStartingOperation());
    volumes_.wake();
    preview();
    EXPECT_FALSE(state().isProcessing());
    EXPECT_THAT(filesBelow(archive()), IsEmpty());
    runToTheEnd();
}

TEST_F(AppStateTest, RefusesARunWithoutRoom) {
    card_.write("a.jpg", std::string(600, 'a'));
    card_.write("b.jpg", std::string(600, 'a'));
    preview();
    findDuplicates();
    volumes_.freeBytes = 600;
    state().startOperation();
    ASSERT_TRUE(waitUntil([this] { return state().operationProgress().errorsCount == 1; }));
    EXPECT_EQ(state().operationProgress().totalFiles, 0);
    EXPECT_EQ(state().currentStep(), WizardStep::preview);
    EXPECT_FALSE(state().isProcessing());
    EXPECT_EQ(state().destinationVolume()->freeSpaceBytes, 600);
    EXPECT_FALSE(std::filesystem::exists(archive().bytes()));

    choosePolicy(DuplicatePolicy::keepAll);
    volumes_.freeBytes = 1200;
    EXPECT_EQ(state().requiredOutputSizeBytes(), 1200);
    state().startOperation();
    ASSERT_TRUE(waitUntil([this] { return state().destinationVolume()->freeSpaceBytes == 1200; }));
    EXPECT_EQ(state().operationProgress().errorsCount, 1);

    choosePolicy(DuplicatePolicy::skipDuplicates);
    volumes_.freeBytes = 601;
    runToTheEnd();
    EXPECT_EQ(state().operationProgress().errorsCount, 0);
    volumes_.freeBytes = OneVolume::unknown;
    state().navigateToStep(WizardStep::preview);
    runToTheEnd();
}

TEST_F(AppStateTest, KeepsDuplicatesApartWhenAsked) {
    card_.write("a/IMG_20210314_153045.jpg", "same");
    card_.write("b/IMG_20210314_153045.jpg", "same");
    preview();
    findDuplicates();
    choosePolicy(DuplicatePolicy::copyToDuplicatesFolder);
    ASSERT_TRUE(waitUntil([this] { return !state().isPlanning(); }));
    EXPECT_THAT(places(), ElementsAre("2021/2021-03 March/IMG_20210314_153045.jpg",
                                      "_Duplicates/2021/2021-03 March/IMG_20210314_153045.jpg"))
        << "the preview shows what a run would do";
    runToTheEnd();
    EXPECT_THAT(namesBelow(archive()), ElementsAre("2021/2021-03 March/IMG_20210314_153045.jpg",
                                                   "_Duplicates/2021/2021-03 March/IMG_20210314_153045.jpg"));
}

TEST_F(AppStateTest, DatesByTheFileSystemOnlyWhileThatIsThePolicy) {
    card_.write("IMG_20210314_153045.jpg", "dated");
    std::filesystem::last_write_time(card_.write("undated.jpg", "undated").bytes(),
                                     std::filesystem::file_time_type::clock::now() -
                                         std::chrono::hours(24 * 365 * 5));
    preview();
    const std::vector<MediaItem> before = *state().scannedItems();
    EXPECT_EQ(counts().missingDates, 1);

    choosePolicy(UnknownDatePolicy::useFilesystemDate);
    ASSERT_TRUE(waitUntil([this] { return !state().isPlanning(); }));
    EXPECT_EQ(counts().missingDates, 0);
    for (const MediaItem& item : *state().scannedItems()) {
        EXPECT_EQ(item.dateSource == DateSourceType::filename, item.fileName() != "undated.jpg");
    }
    EXPECT_THAT(places(), ::testing::Not(::testing::Contains("_Unknown Date/undated.jpg")));

    choosePolicy(UnknownDatePolicy::unknownFolder);
    state().calculatePlannedDestinations();
    EXPECT_EQ(*state().scannedItems(), before);

    choosePolicy(UnknownDatePolicy::useFilesystemDate);
    scanCard();
    EXPECT_EQ(counts().missingDates, 0) << "a new scan under the policy";

    state().finishCompletedOperation();
    const Gate gate(disk_, "openForReading");
    state().startScan();
    ASSERT_TRUE(gate.awaitArrival());
    choosePolicy(UnknownDatePolicy::useFilesystemDate);
    gate.open();
    EXPECT_TRUE(waitUntil([this] { return !state().scannedItems()->empty() && !state().isPlanning(); }));
    EXPECT_EQ(counts().missingDates, 0) << "chosen during the scan, without a destination";
}

TEST_F(AppStateTest, ImportsACardAgainWithoutMakingCopies) {
    // Two files whose names collide in the archive, and one whose name does not.
    card_.write("100/IMG_20210314_153045.jpg", "the one");
    card_.write("101/IMG_20210314_153045.jpg", "another");
    card_.write("101/IMG_20220314_153045.jpg", "alone");
    preview();
    runToTheEnd();
    const auto archived = filesBelow(archive());
    ASSERT_THAT(archived, SizeIs(3));

    restart();
    card_.write("102/IMG_20220314_153045.jpg", "fresh");
    preview();
    runToTheEnd();
    EXPECT_EQ(state().operationProgress().skippedCount, 3);
    EXPECT_EQ(state().operationProgress().verifiedCount, 1);
    auto expected = archived;
    expected.emplace("2022/2022-03 March/IMG_20220314_153045_2.jpg", "fresh");
    EXPECT_EQ(filesBelow(archive()), expected);
}

} // namespace
} // namespace lumeo
