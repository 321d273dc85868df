#include "ui/models/ReportModel.h"

#include "support/Gate.h"
#include "ui/MadeState.h"
#include "ui/models/ProcessingModel.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>

#include <filesystem>

namespace lumeo {
namespace {

using testing::MadeState;
using testing::waitUntil;

class ReportModelTest : public ::testing::Test {
protected:
    /// Runs over three files: two of different years, and one without a date.
    void run() {
        first_ = made_.folder.write("source/IMG_20210314_153045.jpg", "one");
        made_.folder.write("source/VID_20190101_000000.mp4", "two");
        made_.folder.write("source/plain.jpg", "three");
        ASSERT_TRUE(made_.goToReport());
    }
    [[nodiscard]] std::size_t filesInArchive() const {
        std::size_t count = 0;
        for (const auto& entry :
             std::filesystem::recursive_directory_iterator((made_.folder / "archive").bytes())) {
            count += entry.is_regular_file() && entry.path().extension() != ".json" ? 1U : 0U;
        }
        return count;
    }
    void undo() {
        report.setShowUndoAlert(true);
        report.confirmUndo();
        EXPECT_TRUE(report.undo().isUnderWay);
        EXPECT_FALSE(report.showUndoAlert());
        EXPECT_EQ(report.undo().fraction, 0);
        ASSERT_TRUE(waitUntil([this] { return !report.undo().isUnderWay; }));
        EXPECT_EQ(report.undo().fraction, 1);
    }
    void exportAndWait() {
        report.exportCSV();
        ASSERT_TRUE(waitUntil([this] { return !report.exporting().isUnderWay; }));
    }

    MadeState made_;
    Desktop desktop_{made_.desktop, made_.desktop, made_.desktop};
    FilePath first_;
    ReportModel report{made_.state, made_.localization, desktop_, made_.disk, made_.clock};
};

TEST_F(ReportModelTest, TellsOfTheRun) {
    EXPECT_FALSE(report.figures().hasManifest);
    EXPECT_EQ(report.figures().organized, QStringLiteral("0"));
    EXPECT_EQ(report.figures().duration, QStringLiteral("0.0 seconds"));
    EXPECT_EQ(report.figures().mode, QStringLiteral("COPY"));

    run();

    EXPECT_TRUE(report.figures().hasManifest);
    EXPECT_FALSE(report.figures().hasFailures);
    EXPECT_EQ(report.figures().organized, QStringLiteral("3"));
    EXPECT_TRUE(report.figures().proof.startsWith(QStringLiteral("All 3 media files of ")))
        << report.figures().proof.toStdString();
    EXPECT_EQ(report.figures().photosVsVideos, QStringLiteral("2 photos, 1 videos"));
    EXPECT_EQ(report.figures().unknownDates, QStringLiteral("1 file(s)"));
    const QVariantList timeline = report.figures().timeline;
    ASSERT_EQ(timeline.size(), 3);
    EXPECT_EQ(timeline[0].toMap()[QStringLiteral("label")], QStringLiteral("2019"));
    EXPECT_EQ(timeline[2].toMap()[QStringLiteral("label")], QStringLiteral("Unknown"));
    EXPECT_EQ(timeline[2].toMap()[QStringLiteral("count")], QStringLiteral("1 file"));

    report.openDestination();
    EXPECT_EQ(made_.desktop.revealed, std::vector{made_.folder / "archive"});
    report.done();
    EXPECT_EQ(made_.state.currentStep(), WizardStep::sources);
}

TEST_F(ReportModelTest, SavesWhereTheUserSaysAndTellsWhyNot) {
    run();
    exportAndWait(); // the user cancels
    EXPECT_EQ(report.exporting().message, QString());
    ASSERT_EQ(made_.desktop.saveRequests.size(), 1U);
    EXPECT_TRUE(
        made_.desktop.saveRequests[0].defaultName.startsWith(QStringLiteral("LUMEO_Organization_Report_20")));
    EXPECT_TRUE(made_.desktop.saveRequests[0].defaultName.endsWith(QStringLiteral("Z.csv")));

    made_.desktop.document = made_.folder / "report.csv";
    exportAndWait();
    EXPECT_FALSE(report.exporting().hasFailed);
    EXPECT_TRUE(contentOf(made_.folder / "report.csv").starts_with("Original Path,"));

    made_.desktop.document = made_.folder / "missing/report.txt";
    report.exportReport();
    ASSERT_TRUE(waitUntil([this] { return !report.exporting().isUnderWay; }));
    EXPECT_TRUE(report.exporting().hasFailed);
    EXPECT_TRUE(report.exporting().message.contains(QStringLiteral("report.txt")))
        << report.exporting().message.toStdString();
    EXPECT_TRUE(made_.desktop.saveRequests.back().defaultName.endsWith(QStringLiteral("Z.txt")));
}

TEST_F(ReportModelTest, TakesACopyRunBackAndKeepsWhatWasEditedSince) {
    run();
    const FilePath copy = made_.state.activeManifest()->items[0].destinationPath;
    std::filesystem::resize_file(copy.bytes(), 1);

    undo();

    EXPECT_EQ(report.undo().outcome, QStringLiteral("Rollback complete: 2 files restored/removed."));
    EXPECT_EQ(report.undo().counts, QStringLiteral("Skipped: 0 · Errors: 1"));
    EXPECT_EQ(report.undo().warnings.size(), 1);
    EXPECT_EQ(filesInArchive(), 1U);
    EXPECT_EQ(contentOf(first_), "one");
    report.copyUndoWarnings();
    EXPECT_TRUE(QGuiApplication::clipboard()->text().contains(QString::fromStdString(copy.bytes())));

    undo(); // only the file that stays is left to undo
    EXPECT_EQ(report.undo().outcome, QStringLiteral("Rollback complete: 0 files restored/removed."));
    EXPECT_EQ(report.undo().counts, QStringLiteral("Skipped: 2 · Errors: 1"));
}

TEST_F(ReportModelTest, StaysOfItsRunWhateverIsScannedAndChosenAfterIt) {
    run();
    const QVariantList timeline = report.figures().timeline;
    made_.state.navigateToStep(WizardStep::organization);
    made_.state.setDestination(made_.folder / "elsewhere");
    std::filesystem::remove(first_.bytes());
    ASSERT_TRUE(made_.scan());
    made_.state.navigateToStep(WizardStep::report);
    EXPECT_EQ(report.figures().timeline, timeline);
    report.openDestination();
    EXPECT_EQ(made_.desktop.revealed, std::vector{made_.folder / "archive"});
    made_.desktop.document = made_.folder / "report.csv";
    exportAndWait();
    EXPECT_NE(contentOf(made_.folder / "report.csv").find("IMG_20210314_153045.jpg,3,Photo"),
              std::string::npos);
}

TEST_F(ReportModelTest, SaysWhyFilesFailedEachReasonOnce) {
    made_.disk.failWhen(
        [](const DiskCall& call) {
            return call.operation == "createFile" && call.path.bytes().find(".mp4") == std::string::npos;
        },
        ENOSPC);
    run();
    EXPECT_TRUE(report.figures().hasFailures);
    EXPECT_FALSE(report.figures().hasOnlyFailures);
    const QVariantList groups = report.figures().failures;
    ASSERT_EQ(groups.size(), 1);
    const QVariantMap group = groups[0].toMap();
    EXPECT_EQ(group[QStringLiteral("count")], QStringLiteral("2 files"));
    EXPECT_TRUE(group[QStringLiteral("names")].toString().contains(QStringLiteral("plain.jpg")));
    report.copyFailures();
    EXPECT_TRUE(QGuiApplication::clipboard()->text().contains(QString::fromStdString(first_.bytes())));

    report.setShowUndoAlert(true);
    report.confirmUndo();
    ASSERT_TRUE(waitUntil([this] { return !report.undo().isUnderWay; }));
    EXPECT_TRUE(report.undo().isOfReport);
}

TEST(ProcessingModelTest, ShowsARunAndHoldsIt) {
    MadeState made;
    ProcessingModel model(made.state);
    EXPECT_EQ(model.figures().percentage, QStringLiteral("0%"));
    EXPECT_EQ(model.figures().fraction, 0);
    made.folder.write("source/a.jpg", "one");
    ASSERT_TRUE(made.goToPreview());
    const Gate gate(made.disk, "createFile");
    made.state.startOperation();
    ASSERT_TRUE(gate.awaitArrival());
    EXPECT_TRUE(model.isRunning());
    EXPECT_EQ(model.figures().processedOfTotal, QStringLiteral("0 / 1"))
        << "before the run has told of itself";
    EXPECT_EQ(model.figures().remaining, QStringLiteral("1"));
    model.pause();
    EXPECT_TRUE(model.figures().isPaused);
    model.resume();
    EXPECT_FALSE(model.figures().isPaused);
    EXPECT_TRUE(waitUntil([&] { return model.figures().elapsed == QStringLiteral("1s"); }))
        << "within the first file";
    gate.open();
    ASSERT_TRUE(waitUntil([&] { return !model.isRunning(); }));
    EXPECT_EQ(model.figures().processedOfTotal, QStringLiteral("1 / 1"));
    EXPECT_EQ(model.figures().percentage, QStringLiteral("100%"));
    EXPECT_EQ(model.figures().remaining, QStringLiteral("0"));
    EXPECT_FALSE(model.figures().hasErrors);
}

} // namespace
} // namespace lumeo
