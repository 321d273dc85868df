#include "ReportModel.h"

#include "ProcessingModel.h"
#include "WizardWorld.h"

#include <QClipboard>
#include <QGuiApplication>

#include <filesystem>

namespace lumeo {
namespace {

using testing::waitUntil;

class ReportModelTest : public ::testing::Test {
protected:
    /// Three files of two years and none, through a run.
    void run(OperationMode mode = OperationMode::copy) {
        first_ = world.addMedia("IMG_20210314_153045.jpg", "one");
        world.addMedia("VID_20190101_000000.mp4", "two");
        world.addMedia("plain.jpg", "three");
        world.setMode(mode);
        world.goToReport();
    }
    [[nodiscard]] std::size_t filesInArchive() const {
        std::size_t count = 0;
        for (const auto& entry :
             std::filesystem::recursive_directory_iterator((world.folder / "archive").bytes())) {
            count += entry.is_regular_file() && entry.path().extension() != ".json" ? 1 : 0;
        }
        return count;
    }
    void undo() {
        report.setShowUndoAlert(true);
        report.confirmUndo();
        EXPECT_TRUE(report.isUndoing());
        EXPECT_FALSE(report.showUndoAlert());
        ASSERT_TRUE(waitUntil([this] { return !report.isUndoing(); }));
    }
    void exportAndWait() {
        report.exportCSV();
        ASSERT_TRUE(waitUntil([this] { return !report.isExporting(); }));
    }

    WizardWorld world;
    FilePath first_;
    ReportModel report{world.state, world.texts, world.desktopSeam(), world.fileSystem(), world.clock};
};

TEST_F(ReportModelTest, TellsOfTheRun) {
    EXPECT_FALSE(report.hasManifest());
    EXPECT_EQ(report.organized(), QStringLiteral("0"));
    EXPECT_EQ(report.duration(), QStringLiteral("0.0 seconds"));
    EXPECT_EQ(report.mode(), QStringLiteral("COPY"));

    run();

    EXPECT_TRUE(report.hasManifest());
    EXPECT_FALSE(report.hasFailures());
    EXPECT_EQ(report.organized(), QStringLiteral("3"));
    EXPECT_EQ(report.photosVsVideos(), QStringLiteral("2 photos, 1 videos"));
    EXPECT_EQ(report.unknownDates(), QStringLiteral("1 file(s)"));
    const QVariantList timeline = report.timeline();
    ASSERT_EQ(timeline.size(), 3);
    EXPECT_EQ(timeline[0].toMap()[QStringLiteral("label")], QStringLiteral("2019"));
    EXPECT_EQ(timeline[2].toMap()[QStringLiteral("label")], QStringLiteral("Unknown"));
    EXPECT_EQ(timeline[2].toMap()[QStringLiteral("count")], QStringLiteral("1 file"));

    report.openDestination();
    EXPECT_EQ(world.desktop.revealed, std::vector{world.folder / "archive"});
    report.done();
    EXPECT_EQ(world.state.currentStep(), WizardStep::sources);
}

TEST_F(ReportModelTest, SavesWhereTheUserSaysAndTellsWhyNot) {
    run();
    exportAndWait(); // the user cancels
    EXPECT_EQ(report.exportMessage(), QString());
    ASSERT_EQ(world.desktop.saveRequests.size(), 1U);
    EXPECT_EQ(world.desktop.saveRequests[0].defaultName,
              QStringLiteral("LUMEO_Organization_Report_2024-05-17T00:00:00Z.csv"));

    world.desktop.placeToSave = world.folder / "report.csv";
    exportAndWait();
    EXPECT_FALSE(report.exportFailed());
    EXPECT_TRUE(contentOf(world.folder / "report.csv").starts_with("Original Path,"));

    world.desktop.placeToSave = world.folder / "missing/report.txt";
    report.exportReport();
    ASSERT_TRUE(waitUntil([this] { return !report.isExporting(); }));
    EXPECT_TRUE(report.exportFailed());
    EXPECT_TRUE(report.exportMessage().contains(QStringLiteral("report.txt")))
        << report.exportMessage().toStdString();
    EXPECT_EQ(world.desktop.saveRequests.back().defaultName,
              QStringLiteral("LUMEO_Organization_Summary_2024-05-17T00:00:00Z.txt"));
}

TEST_F(ReportModelTest, TakesACopyRunBackAndKeepsWhatWasEditedSince) {
    run();
    const FilePath copy = world.state.activeManifest()->items[0].destinationPath;
    std::filesystem::resize_file(copy.bytes(), 1);

    undo();

    EXPECT_EQ(report.undoStatusMessage(), QStringLiteral("Rollback complete: 2 files restored/removed."));
    EXPECT_EQ(report.undoCounts(), QStringLiteral("Skipped: 0 · Errors: 1"));
    EXPECT_EQ(report.undoWarningCount(), 1);
    EXPECT_EQ(filesInArchive(), 1U);
    EXPECT_EQ(contentOf(first_), "one");
    report.copyUndoWarnings();
    EXPECT_TRUE(QGuiApplication::clipboard()->text().contains(QString::fromStdString(copy.bytes())));

    undo(); // nothing is left to take back but the one that stays
    EXPECT_EQ(report.undoStatusMessage(), QStringLiteral("Rollback complete: 0 files restored/removed."));
    EXPECT_EQ(report.undoCounts(), QStringLiteral("Skipped: 2 · Errors: 1"));
}

TEST_F(ReportModelTest, TakesAMoveRunBackAndForgetsItWithTheNextRun) {
    run(OperationMode::move);
    EXPECT_FALSE(std::filesystem::exists(first_.bytes()));
    undo();
    EXPECT_EQ(contentOf(first_), "one");
    EXPECT_EQ(report.undoCounts(), QString());

    world.state.navigateToStep(WizardStep::preview);
    world.state.startOperation();
    ASSERT_TRUE(waitUntil([this] { return world.state.currentStep() == WizardStep::report; }));
    EXPECT_EQ(report.undoStatusMessage(), QString());
}

TEST_F(ReportModelTest, EndsAnUndoThatTheProgramDoesNotWaitFor) {
    run();
    {
        ReportModel leaving(world.state, world.texts, world.desktopSeam(), world.fileSystem(), world.clock);
        leaving.confirmUndo();
        leaving.confirmUndo(); // one at a time
    }
    QCoreApplication::processEvents(); // nothing comes back to what is gone
    EXPECT_LE(filesInArchive(), 3U);
}

TEST(ProcessingModelTest, ShowsARunAndHoldsIt) {
    WizardWorld world;
    ProcessingModel model(world.state);
    EXPECT_EQ(model.percentage(), QStringLiteral("0%"));
    EXPECT_EQ(model.fraction(), 0);
    world.addMedia("a.jpg", "one");
    world.goToPreview();
    world.state.startOperation();
    EXPECT_TRUE(model.isRunning());
    model.pause();
    EXPECT_TRUE(model.isPaused());
    model.resume();
    EXPECT_FALSE(model.isPaused());
    ASSERT_TRUE(waitUntil([&] { return !model.isRunning(); }));
    EXPECT_EQ(model.processedOfTotal(), QStringLiteral("1 / 1"));
    EXPECT_EQ(model.percentage(), QStringLiteral("100%"));
    EXPECT_EQ(model.remaining(), QStringLiteral("0"));
    EXPECT_FALSE(model.hasErrors());
}

} // namespace
} // namespace lumeo
