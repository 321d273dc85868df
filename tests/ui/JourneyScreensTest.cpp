#include "support/Gate.h"
#include "support/Warnings.h"
#include "ui/MadeState.h"
#include "ui/ShownScreen.h"
#include "ui/models/PreviewModel.h"
#include "ui/models/ProcessingModel.h"
#include "ui/models/ReportModel.h"
#include "ui/models/ThumbnailService.h"

#include <gtest/gtest.h>

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QtTest>

namespace lumeo {
namespace {

using testing::MadeState;
using testing::waitUntil;

/// The last three screens, each in a window of its own, on a real state.
class JourneyScreensTest : public ::testing::Test {
protected:
    void show(const char* screen, QObject* model) {
        view_.engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
        QQmlComponent component(view_.engine());
        component.setData("import Lumeo.Window\n" + QByteArray(screen) + " {}", QUrl());
        auto* item = qobject_cast<QQuickItem*>(
            component.createWithInitialProperties({{QStringLiteral("model"), QVariant::fromValue(model)}}));
        ASSERT_NE(item, nullptr) << component.errorString().toStdString();
        view_.setResizeMode(QQuickView::SizeRootObjectToView);
        view_.setContent(QUrl(), &component, item);
        view_.resize(900, 522);
        view_.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&view_));
    }
    [[nodiscard]] QQuickItem* find(const char* name) const {
        return view_.rootObject()->findChild<QQuickItem*>(QString::fromLatin1(name));
    }
    void click(const char* name) {
        QQuickItem* item = find(name);
        ASSERT_NE(item, nullptr) << name;
        const QPointF middle = item->mapToScene({item->width() / 2, item->height() / 2});
        QTest::mouseClick(&view_, Qt::LeftButton, {}, middle.toPoint());
    }
    void preview() {
        made_.writePhoto("source/a.jpg");
        made_.folder.write("source/b.mov", "no movie");
        made_.writePhoto("source/c.jpg");
        ASSERT_TRUE(made_.goToPreview());
        show("PreviewScreen", &preview_);
    }

    /// A part of a screen, by itself.
    std::unique_ptr<QObject> make(const char* part) {
        view_.engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
        QQmlComponent component(view_.engine());
        component.setData("import QtQuick\nimport Lumeo.Window\n" + QByteArray(part), QUrl());
        EXPECT_TRUE(component.isReady()) << component.errorString().toStdString();
        return std::unique_ptr<QObject>(component.create());
    }

    void TearDown() override { EXPECT_EQ(testing::Warnings::text(), ""); }

    const testing::Warnings warnings_;
    MadeState made_;
    ThumbnailService thumbnails_;
    PreviewModel preview_{made_.state, made_.localization, thumbnails_};
    ProcessingModel processing_{made_.state};
    ReportModel report_{made_.state, made_.localization, Desktop{made_.desktop, made_.desktop, made_.desktop},
                        made_.disk, made_.clock};
    QQuickView view_;
};

TEST_F(JourneyScreensTest, ThePreviewIsWalkedAndSearchedByKeyboard) {
    preview();
    find("table")->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(&view_, Qt::Key_Down);
    EXPECT_EQ(preview_.currentRow(), 0);
    QTest::keyClick(&view_, Qt::Key_End);
    EXPECT_EQ(preview_.currentRow(), 2);
    QTest::keyClick(&view_, Qt::Key_Up);
    EXPECT_EQ(preview_.currentRow(), 1);
    QTest::keyClick(&view_, Qt::Key_Escape);
    EXPECT_FALSE(preview_.inspector()->isOpen());

    QTest::keyClick(&view_, Qt::Key_F, Qt::ControlModifier);
    QTest::keyClick(&view_, Qt::Key_M);
    EXPECT_EQ(preview_.searchText(), QStringLiteral("m"));
    EXPECT_EQ(preview_.rows()->count(), 1);
}

TEST_F(JourneyScreensTest, AnEmptyPreviewSaysWhetherTheSearchIsWhy) {
    testing::ShownScreen screen("PreviewScreen", preview_);
    EXPECT_NE(screen.find("scan.totalSupported: 0"), nullptr);
    screen.find("preview.search")->forceActiveFocus();
    screen.type("m");
    EXPECT_NE(screen.find("No files match."), nullptr);
}

TEST_F(JourneyScreensTest, ColumnsGiveWayToTheDestinationButNotToTheUsersHand) {
    const auto columns = make("TableColumns { available: 1100 }");
    ASSERT_NE(columns, nullptr);
    enum Column { file, date, source, confidence, destination, status };
    const auto width = [&](Column column) {
        return columns->property("widths").value<QJSValue>().property(column).toNumber();
    };
    const auto resize = [&](Column column, double by) {
        QMetaObject::invokeMethod(columns.get(), "resize", Q_ARG(int, column), Q_ARG(double, by));
    };
    const auto total = [&] { return columns->property("total").toDouble(); };

    EXPECT_EQ(total(), 1100);
    resize(file, 600);
    for (const Column column : {file, date, source, confidence, destination, status}) {
        EXPECT_GT(width(column), 50) << column;
    }
    EXPECT_GT(total(), 1100); // scrolled to

    columns->setProperty("available", 580);
    EXPECT_EQ(width(source) + width(confidence), 0);
    EXPECT_GT(width(status), 50);
    columns->setProperty("available", 1100);
    resize(source, -20);
    columns->setProperty("available", 580);
    EXPECT_GT(width(source), 50);
}

TEST_F(JourneyScreensTest, ADestinationSaysWhetherItIsShownWhole) {
    const auto path = make("PathCell { height: 30; text: '/home/anna/Archive/2021-03/IMG_0001.JPG' }");
    ASSERT_NE(path, nullptr);
    for (const int width : {40, 120, 200}) {
        path->setProperty("width", width);
        EXPECT_TRUE(path->property("truncated").toBool()) << width;
    }
    path->setProperty("width", 600);
    EXPECT_FALSE(path->property("truncated").toBool());
}

TEST_F(JourneyScreensTest, TheRunGoesFromThePreviewToAReportThatCanBeTakenBack) {
    preview();
    click("start");
    ASSERT_TRUE(waitUntil([this] { return made_.state.currentStep() == WizardStep::report; }));
    show("ReportScreen", &report_);
    report_.setShowUndoAlert(true);
    QTest::qWait(50);
    report_.confirmUndo();
    ASSERT_TRUE(waitUntil([this] { return !report_.isUndoing(); }));
    EXPECT_TRUE(
        find("undoStatusMessage")->property("text").toString().startsWith(QStringLiteral("Rollback")));
}

TEST_F(JourneyScreensTest, ARunIsHeldAndResumedByItsButton) {
    preview();
    const Gate gate(made_.disk, "write");
    made_.state.startOperation();
    ASSERT_TRUE(gate.awaitArrival());
    processing_.pause();
    show("ProcessingScreen", &processing_);
    EXPECT_TRUE(processing_.isPaused());
    gate.open();
    click("pause");
    EXPECT_FALSE(processing_.isPaused());
    EXPECT_TRUE(waitUntil([this] { return made_.state.currentStep() == WizardStep::report; }));
}

} // namespace
} // namespace lumeo
