#include "ui/models/ScanModel.h"

#include "ui/MadeState.h"

#include <gtest/gtest.h>

namespace lumeo {
namespace {

using testing::MadeState;
using testing::waitUntil;

class ScanModelTest : public ::testing::Test {
protected:
    MadeState made_;
    ScanModel model_{made_.state, made_.localization};
};

TEST_F(ScanModelTest, TellsWhatAScanMetFoundAndCouldNotRead) {
    made_.writePhoto("source/a.jpg");
    made_.writePhoto("source/b.jpg");
    made_.folder.write("source/c.mp4", "no movie");
    made_.folder.write("source/notes.txt", "text");
    made_.state.addSource(made_.folder / "gone");
    ASSERT_TRUE(made_.scan());

    EXPECT_EQ(model_.counters().photos, QStringLiteral("2"));
    EXPECT_EQ(model_.counters().unsupported, QStringLiteral("1"));
    EXPECT_EQ(model_.findings().unreadableTitle, QStringLiteral("1 place could not be read"));
    ASSERT_EQ(model_.findings().unreadable.size(), 1);
    EXPECT_TRUE(model_.findings().unreadable[0].endsWith(QStringLiteral("/gone: No such file or directory")));
    EXPECT_EQ(model_.findings().missingDates, QStringLiteral("1"));
    EXPECT_DOUBLE_EQ(model_.findings().videosShare, 1.0 / 3);

    EXPECT_EQ(model_.findings().duplicates, QStringLiteral("\u2013")) << "not analyzed is not none";
    model_.analyzeDuplicates();
    ASSERT_TRUE(waitUntil([this] { return !model_.isAnalyzing(); }));
    EXPECT_EQ(model_.findings().duplicates, QStringLiteral("2"));

    made_.state.clearSources();
    EXPECT_EQ(model_.findings().foundLine, QStringLiteral("3 media files found across 2"));
}

TEST_F(ScanModelTest, AnEmptyScanLeadsBackOnly) {
    made_.folder.write("source/notes.txt", "text");
    ASSERT_TRUE(made_.scan());
    EXPECT_FALSE(model_.findings().hasItems);
    model_.organize();
    EXPECT_EQ(made_.state.currentStep(), WizardStep::scanResults);
    model_.changeSources();
    EXPECT_EQ(made_.state.currentStep(), WizardStep::sources);
}

} // namespace
} // namespace lumeo
