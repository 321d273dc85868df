#include "support/Gate.h"
#include "ui/MadeState.h"
#include "ui/ShownScreen.h"
#include "ui/models/OrganizationModel.h"
#include "ui/models/ScanModel.h"
#include "ui/models/SourcesModel.h"

#include <gtest/gtest.h>

#include <QMimeData>

namespace lumeo {
namespace {

using testing::MadeState;
using testing::ShownScreen;
using testing::waitUntil;
using testing::Warnings;

/// Drags over the middle of the window and drops, as the desktop would; false when it is not taken as a
/// copy.
bool drop(QQuickView& view, const QMimeData& data) {
    const QPoint middle(view.width() / 2, view.height() / 2);
    QDragEnterEvent enter(middle, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&view, &enter);
    if (!enter.isAccepted()) {
        QDragLeaveEvent leave;
        QCoreApplication::sendEvent(&view, &leave);
        return false;
    }
    QDropEvent dropped(middle, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    dropped.setDropAction(Qt::MoveAction);
    QCoreApplication::sendEvent(&view, &dropped);
    return dropped.isAccepted() && dropped.dropAction() == Qt::CopyAction;
}

TEST(SourcesScreenTest, TakesDroppedFoldersAndShowsThemAsCards) {
    MadeState made;
    made.volumes.add(FilePath("/media/card"), 1000, 500, true);
    SourcesModel model(made.state, made.localization);
    ShownScreen screen("SourcesScreen", model);
    EXPECT_FALSE(screen.isEnabled("sources.scanMedia"));
    EXPECT_NE(screen.find("sources.emptyInstruction"), nullptr);

    QMimeData text;
    text.setText(QStringLiteral("file:///photos"));
    EXPECT_FALSE(drop(screen.view(), text));
    QMimeData folders;
    folders.setData(QStringLiteral("text/uri-list"), "file:///photos/%E9t%E9\r\nfile:///media/card\r\n");
    ASSERT_TRUE(drop(screen.view(), folders));

    ASSERT_EQ(made.state.sources().size(), 2U);
    EXPECT_EQ(made.state.sources()[0].url.bytes(), "/photos/\xE9t\xE9");
    EXPECT_EQ(screen.find("sources.emptyInstruction"), nullptr);
    EXPECT_TRUE(waitUntil([&] { return screen.find("sources.externalDriveBadge") != nullptr; }));
    EXPECT_TRUE(screen.press("Remove folder from scan list"));
    EXPECT_EQ(made.state.sources().size(), 1U);
    EXPECT_TRUE(screen.press("sources.scanMedia"));
    EXPECT_EQ(made.state.currentStep(), WizardStep::scanResults);
    EXPECT_EQ(Warnings::text(), "");
}

TEST(ScanScreenTest, ShowsTheScanThenItsResults) {
    MadeState made;
    for (int i = 0; i < 3; ++i) {
        made.writePhoto("source/" + std::to_string(i) + ".jpg");
    }
    ScanModel model(made.state, made.localization);
    const Gate gate(made.disk, "openForReading");
    made.state.addSource(made.folder / "source");
    made.state.startScan();
    ASSERT_TRUE(gate.awaitArrival());
    ShownScreen screen("ScanScreen", model);
    EXPECT_TRUE(screen.press("scan.pause"));
    EXPECT_NE(screen.find("scan.pausedTitle"), nullptr);
    gate.open();
    EXPECT_TRUE(screen.press("scan.resume"));
    ASSERT_TRUE(waitUntil([&] { return screen.find("results.title") != nullptr; }));

    EXPECT_NE(screen.find("scan.photos: 3"), nullptr);
    EXPECT_NE(screen.find("results.exactDuplicates: 0"), nullptr);
    EXPECT_TRUE(screen.press("results.analyzeDuplicates"));
    EXPECT_EQ(screen.find("results.analyzeDuplicates"), nullptr);
    EXPECT_NE(screen.find("results.analyzingDuplicates"), nullptr);
    ASSERT_TRUE(waitUntil([&] { return screen.find("results.exactDuplicates: 3") != nullptr; }));
    EXPECT_TRUE(screen.press("results.organize"));
    EXPECT_EQ(made.state.currentStep(), WizardStep::organization);
    EXPECT_EQ(Warnings::text(), "");
}

TEST(OrganizationScreenTest, EditsThePlanAndLeadsOnWithADestination) {
    MadeState made;
    made.writePhoto("source/a.jpg");
    ASSERT_TRUE(made.scan());
    made.state.proceedToNextStep();
    OrganizationModel model(made.state, made.localization);
    ShownScreen screen("OrganizationScreen", model);
    EXPECT_FALSE(screen.isEnabled("org.previewChanges"));
    EXPECT_EQ(screen.find("org.customTemplate"), nullptr);

    made.desktop.folders = {made.folder / "archive"};
    EXPECT_TRUE(screen.press("org.chooseDestination"));
    EXPECT_TRUE(screen.press("org.preset.custom"));
    ASSERT_NE(screen.find("org.customTemplate"), nullptr);
    model.setCustomTemplate({});
    EXPECT_TRUE(screen.press("{YYYY}"));
    screen.type("-");
    EXPECT_TRUE(screen.press("{MM}"));
    EXPECT_EQ(made.state.organizationPlan().customTemplate, "{YYYY}-{MM}");
    EXPECT_NE(screen.find("2021-03/a.jpg"), nullptr);

    EXPECT_TRUE(screen.press("org.moveTitle"));
    EXPECT_EQ(screen.find("org.verifyIntegrity"), nullptr);
    EXPECT_TRUE(screen.press("org.advanced"));
    EXPECT_TRUE(screen.press("org.verifyIntegrity"));
    EXPECT_EQ(made.state.organizationPlan().operationMode, OperationMode::move);
    EXPECT_FALSE(made.state.organizationPlan().verifyTransfers);
    EXPECT_TRUE(screen.press("org.previewChanges"));
    EXPECT_EQ(made.state.currentStep(), WizardStep::preview);
    EXPECT_EQ(Warnings::text(), "");
}

} // namespace
} // namespace lumeo
