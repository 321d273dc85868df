#include <gtest/gtest.h>

#include "ui/MadeProgram.h"

namespace lumeo {
namespace {

using testing::MadeProgram;
using testing::waitUntil;
using testing::Warnings;

TEST(WindowTest, LanguageAndAppearanceChangeAtOnceAndKeepTheScreen) {
    MadeProgram made;
    EXPECT_EQ(made.window->title(), QStringLiteral("LUMEO."));
    EXPECT_TRUE(made.shows("Scan Results"));
    made.state.addSource(made.folder.path());

    const QColor light = made.window->color();
    EXPECT_TRUE(made.click("Light"));
    EXPECT_TRUE(made.shows("Dark"));
    EXPECT_NE(made.window->color(), light);

    EXPECT_TRUE(made.click("Application Language"));
    ASSERT_TRUE(made.shows("\U0001F1E9\U0001F1EA Deutsch"));
    EXPECT_TRUE(made.click("\U0001F1E9\U0001F1EA Deutsch"));
    EXPECT_TRUE(made.shows("Scanergebnisse"));
    EXPECT_EQ(made.state.sources().size(), 1U);
    EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), QStringLiteral("Cancel"))
        << "the toolkit's own texts are none of ours";
    EXPECT_EQ(made.settings.value(QStringLiteral("appLanguage")).toString(), QStringLiteral("de"));
    EXPECT_EQ(Warnings::text(), "");
}

TEST(WindowTest, EachSheetOpensFromTheHeaderAndEscapeClosesIt) {
    MadeProgram made;
    const std::pair<const char*, const char*> sheets[] = {
        {"How to Use", "A simple step-by-step guide to organizing your media."},
        {"Privacy & Security", "Your media stays on your computer."},
        {"Performance Notice",
         "This is expected during heavy media processing and does not indicate a problem."},
        {"About LUMEO.", "A private, local media archive organizer for your computer."},
    };
    for (const auto& [button, text] : sheets) {
        EXPECT_TRUE(made.click(button)) << button;
        ASSERT_TRUE(made.shows(text)) << button;
        made.press(Qt::Key_Escape);
        EXPECT_TRUE(waitUntil([&] { return made.find(text) == nullptr; })) << button;
    }
    made.press(Qt::Key_F1);
    EXPECT_TRUE(made.shows(sheets[0].second));
    EXPECT_EQ(Warnings::text(), "");
}

TEST(WindowTest, StepsLeadToTheirScreensAndOnlyToThoseReached) {
    MadeProgram made;
    made.press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(made.desktop.requests.size(), 1U);

    made.folder.write("source/a.jpg", tinyJpeg({}));
    made.state.addSource(made.folder / "source");
    made.state.startScan();
    ASSERT_TRUE(waitUntil([&] { return !made.state.isScanning(); }));
    EXPECT_TRUE(made.shows("Scan Complete"));
    EXPECT_FALSE(made.click("Preview"));
    EXPECT_TRUE(made.shows("Scan Complete"));
    EXPECT_TRUE(made.click("Sources"));
    EXPECT_TRUE(made.shows("Drop folders or drives here"));
    EXPECT_EQ(Warnings::text(), "");
}

} // namespace
} // namespace lumeo
