#include "window/WindowPlace.h"

#include "support/EventLoop.h"
#include "support/TempFolder.h"

#include <QScreen>
#include <QSettings>
#include <QWindow>

#include <gtest/gtest.h>

namespace lumeo {
namespace {

using testing::waitUntil;

/// Several windows, one after the other, each in a new start of the program.
class WindowPlaceTest : public ::testing::Test {
protected:
    /// Shows the window, runs `work` with it, and returns its first position.
    template<class Work>
    QRect live(Work work) {
        QWindow window;
        window.resize(600, 400);
        const WindowPlace place(window, settings_);
        const QRect first = window.geometry();
        window.setVisible(true);
        work(window);
        QCoreApplication::processEvents(); // lets the window system change it
        return first;
    }
    QRect live() {
        return live([](QWindow&) {});
    }

    TempFolder folder_;
    QSettings settings_{QString::fromStdString((folder_ / "settings.ini").bytes()), QSettings::IniFormat};
};

TEST_F(WindowPlaceTest, ComesBackWhereItWas) {
    const QRect place(80, 90, 500, 300);
    EXPECT_EQ(live().size(), QSize(600, 400));
    live([&](QWindow& window) { window.setGeometry(place); });
    EXPECT_EQ(live(), place);
}

TEST_F(WindowPlaceTest, KeepsItsPlaceWhileItFillsTheScreen) {
    const QRect place(80, 90, 500, 300);
    live([&](QWindow& window) {
        window.setGeometry(place);
        window.showMaximized();
        ASSERT_TRUE(waitUntil([&] { return window.geometry() != place; }));
    });
    live([&](QWindow& window) {
        EXPECT_TRUE(window.windowStates().testFlag(Qt::WindowMaximized));
        window.showNormal();
        window.setGeometry(place);
    });
    EXPECT_EQ(live(), place);
}

TEST_F(WindowPlaceTest, IsNotTakenFromASizeThatComesBeforeTheWordOfAFullScreen) {
    const QRect place(80, 90, 500, 300);
    live([&](QWindow& window) { window.setGeometry(place); });
    live([](QWindow& window) {
        window.setGeometry(window.screen()->availableGeometry());
        QCoreApplication::processEvents();
        window.showMaximized();
    });
    EXPECT_EQ(live(), place);
}

TEST_F(WindowPlaceTest, IsNotLostWhereNoScreenIsAnyMore) {
    live([](QWindow& window) { window.setGeometry(5000, 5000, 500, 300); });
    EXPECT_EQ(live().size(), QSize(600, 400));
    settings_.setValue(QStringLiteral("window/place"), QStringLiteral("nonsense"));
    EXPECT_EQ(live().size(), QSize(600, 400));
}

} // namespace
} // namespace lumeo
