#include "support/Warnings.h"
#include "ui/MadeState.h"
#include "ui/ShownScreen.h"
#include "ui/models/PreviewModel.h"
#include "ui/thumbnails/ThumbnailService.h"

#include <gtest/gtest.h>

#include <QQmlComponent>
#include <QQmlEngine>

namespace lumeo {
namespace {

TEST(PreviewScreenTest, AnEmptyOneSaysWhetherTheSearchIsWhy) {
    testing::MadeState made;
    ThumbnailService thumbnails;
    PreviewModel preview(made.state, made.localization, thumbnails, made.desktop, made.preferences);
    testing::ShownScreen screen("PreviewScreen", preview);
    EXPECT_NE(screen.find("scan.totalSupported: 0"), nullptr);
    screen.find("preview.search")->forceActiveFocus();
    screen.type("m");
    EXPECT_NE(screen.find("No files match."), nullptr);
}

/// Tests each part of the table by itself.
class PreviewTableTest : public ::testing::Test {
protected:
    std::unique_ptr<QObject> make(const char* part) {
        engine_.addImportPath(QStringLiteral("qrc:/qt/qml"));
        QQmlComponent component(&engine_);
        component.setData("import QtQuick\nimport Lumeo.Window\n" + QByteArray(part), QUrl());
        EXPECT_TRUE(component.isReady()) << component.errorString().toStdString();
        return std::unique_ptr<QObject>(component.create());
    }

    void TearDown() override { EXPECT_EQ(testing::Warnings::text(), ""); }

    const testing::Warnings warnings_;
    QQmlEngine engine_;
};

TEST_F(PreviewTableTest, ColumnsGiveWayToTheDestinationButNotToTheUsersHand) {
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
    EXPECT_GT(total(), 1100); // the table scrolls

    columns->setProperty("available", 580);
    EXPECT_EQ(width(source) + width(status), 0);
    EXPECT_GT(width(confidence), 50);
    columns->setProperty("available", 1920);
    EXPECT_GT(width(destination), 700);
    EXPECT_GT(width(file), 400);
    columns->setProperty("available", 1100);
    resize(source, -20);
    columns->setProperty("available", 580);
    EXPECT_GT(width(source), 50);
}

TEST_F(PreviewTableTest, ADestinationSaysWhetherItIsShownWhole) {
    const auto path = make("PathCell { height: 30; text: '/home/anna/Archive/2021-03/IMG_0001.JPG' }");
    ASSERT_NE(path, nullptr);
    for (const int width : {40, 120, 200}) {
        path->setProperty("width", width);
        EXPECT_TRUE(path->property("truncated").toBool()) << width;
    }
    path->setProperty("width", 600);
    EXPECT_FALSE(path->property("truncated").toBool());
}

} // namespace
} // namespace lumeo
