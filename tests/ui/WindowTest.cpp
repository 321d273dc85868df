#include <gtest/gtest.h>

#include <QAccessible>
#include <QQmlEngine>
#include <QQuickItem>
#include <QtTest>

#include "support/Warnings.h"
#include "ui/MadeState.h"
#include "ui/Program.h"

namespace lumeo {
namespace {

using testing::waitUntil;
using testing::Warnings;

/// The whole program over a folder of its own.
class WindowTest : public ::testing::Test {
protected:
    void SetUp() override {
        settings_.setValue(QStringLiteral("appLanguage"), QStringLiteral("en"));
        program_ = std::make_unique<Program>(engine_, Machine{.fileSystem = fileSystem_,
                                                              .clock = clock_,
                                                              .volumes = volumes_,
                                                              .settings = settings_,
                                                              .desktop = {desktop_, desktop_, desktop_}});
        program_->shell().setReducedMotion(true);
        window_ = program_->makeWindow();
        ASSERT_NE(window_, nullptr) << Warnings::text();
        window_->show();
        window_->requestActivate();
        ASSERT_TRUE(waitUntil([this] { return window_->isActive(); }));
    }

    void TearDown() override {
        program_.reset();
        EXPECT_EQ(Warnings::text(), "");
    }

    static std::string nameOf(QObject* object) {
        auto* face = object != nullptr ? QAccessible::queryAccessibleInterface(object) : nullptr;
        return face != nullptr ? face->text(QAccessible::Name).toStdString() : "";
    }

    /// The item of that name among those in sight; null when there is none.
    static QQuickItem* find(QQuickItem* item, const std::string& name) {
        if (!item->isVisible() || nameOf(item) == name) {
            return item->isVisible() ? item : nullptr;
        }
        for (auto* child : item->childItems()) {
            if (auto* found = find(child, name)) {
                return found;
            }
        }
        return nullptr;
    }

    [[nodiscard]] QQuickItem* find(const std::string& name) const {
        return find(window_->contentItem(), name);
    }

    void click(const std::string& name) {
        auto* item = find(name);
        ASSERT_NE(item, nullptr) << name;
        const QPointF middle = item->mapToScene({item->width() / 2, item->height() / 2});
        QTest::mouseClick(window_, Qt::LeftButton, {}, middle.toPoint());
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(window_, key, modifiers);
    }

    [[nodiscard]] bool isInSight(const std::string& name) const {
        return waitUntil([&] { return find(name) != nullptr; });
    }

    ScopedEnvironment locale_{"LC_ALL", "en_US.UTF-8"};
    TempFolder folder_;
    Warnings warnings_;
    QSettings settings_{QString::fromStdString((folder_ / "settings.ini").bytes()), QSettings::IniFormat};
    PosixFileSystem fileSystem_;
    SystemClock clock_;
    testing::MadeVolumes volumes_;
    testing::MadeDesktop desktop_;
    QQmlEngine engine_;
    std::unique_ptr<Program> program_;
    QQuickWindow* window_ = nullptr;
};

TEST_F(WindowTest, LanguageAndAppearanceChangeAtOnceAndKeepTheScreen) {
    EXPECT_EQ(window_->title(), QStringLiteral("LUMEO."));
    EXPECT_TRUE(isInSight("Scan Results"));
    program_->state().addSource(folder_.path());

    const QColor light = window_->color();
    click("Light");
    EXPECT_TRUE(isInSight("Dark"));
    EXPECT_NE(window_->color(), light);

    click("Application Language");
    ASSERT_TRUE(isInSight("\U0001F1E9\U0001F1EA Deutsch"));
    click("\U0001F1E9\U0001F1EA Deutsch");
    EXPECT_TRUE(isInSight("Scanergebnisse"));
    EXPECT_EQ(program_->state().sources().size(), 1U);
    EXPECT_EQ(settings_.value(QStringLiteral("appLanguage")).toString(), QStringLiteral("de"));
}

TEST_F(WindowTest, EachSheetOpensFromTheHeaderAndEscapeClosesIt) {
    const std::pair<const char*, const char*> sheets[] = {
        {"How to Use", "A simple step-by-step guide to organizing your media."},
        {"Privacy & Security", "Your media stays on your Mac."},
        {"Performance Notice",
         "This is expected during heavy media processing and does not indicate a problem."},
        {"About LUMEO.", "A private, local media archive organizer for macOS."},
    };
    for (const auto& [button, text] : sheets) {
        click(button);
        ASSERT_TRUE(isInSight(text)) << button;
        press(Qt::Key_Escape);
        EXPECT_TRUE(waitUntil([&] { return find(text) == nullptr; })) << button;
    }
    press(Qt::Key_F1);
    EXPECT_TRUE(isInSight(sheets[0].second));
}

TEST_F(WindowTest, StepsLeadToTheirScreensAndOnlyToThoseReached) {
    press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(desktop_.requests.size(), 1U);

    folder_.write("source/a.jpg", tinyJpeg({}));
    program_->state().addSource(folder_ / "source");
    program_->state().startScan();
    ASSERT_TRUE(waitUntil([this] { return !program_->state().isScanning(); }));
    EXPECT_TRUE(isInSight("Scan Complete"));
    click("Preview");
    EXPECT_TRUE(isInSight("Scan Complete"));
    click("Sources");
    EXPECT_TRUE(isInSight("Drop folders or drives here"));
}

} // namespace
} // namespace lumeo
