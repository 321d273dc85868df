#include "ui/MadeState.h"
#include "ui/ShownScreen.h"
#include "ui/models/ReportModel.h"
#include "ui/models/SourcesModel.h"

#include <gtest/gtest.h>

#include <QMimeData>

namespace lumeo {
namespace {

using testing::MadeState;
using testing::ShownScreen;
using testing::waitUntil;
using testing::Warnings;

/// Drags over the middle of the window and drops, as the desktop would. False when the window does not accept
/// it as a copy.
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
    ReportModel report(made.state, made.localization, {made.desktop, made.desktop, made.desktop}, made.disk,
                       made.clock);
    ShownScreen screen("SourcesScreen", {{QStringLiteral("model"), QVariant::fromValue(&model)},
                                         {QStringLiteral("report"), QVariant::fromValue(&report)}});
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

} // namespace
} // namespace lumeo
