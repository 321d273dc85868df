#include "ui/models/ScanModel.h"

#include "ui/MadeState.h"

#include <gtest/gtest.h>

namespace lumeo {
namespace {

using testing::MadeState;

class ScanModelTest : public ::testing::Test {
protected:
    MadeState made_;
    ScanModel model_{made_.state, made_.localization};
};

TEST_F(ScanModelTest, TellsWhatAScanMetAndWhatItFound) {
    made_.writePhoto("source/a.jpg");
    made_.writePhoto("source/b.jpg", "2020:01:01 10:00:00");
    made_.folder.write("source/undated.png", "no picture");
    made_.folder.write("source/c.mp4", "no movie");
    made_.folder.write("source/notes.txt", "text");
    made_.folder.write("source/sheet.doc", "text");
    ASSERT_TRUE(made_.scan());

    EXPECT_EQ(model_.counters().photos, QStringLiteral("3"));
    EXPECT_EQ(model_.counters().videos, QStringLiteral("1"));
    EXPECT_EQ(model_.counters().supported, QStringLiteral("4"));
    EXPECT_EQ(model_.counters().unsupported, QStringLiteral("2"));
    EXPECT_EQ(model_.counters().inspected, QStringLiteral("6"));
    EXPECT_FALSE(model_.counters().hasErrors);

    EXPECT_EQ(model_.findings().foundLine, QStringLiteral("4 media files found across 1"));
    EXPECT_TRUE(model_.findings().scannedInLine.startsWith(QStringLiteral("Scanned in 0.")));
    EXPECT_EQ(model_.findings().photos, QStringLiteral("3"));
    EXPECT_EQ(model_.findings().photosShare, 0.75);
    EXPECT_EQ(model_.findings().rawShare, 0);
    EXPECT_EQ(model_.findings().missingDates, QStringLiteral("2"));
    EXPECT_TRUE(model_.findings().hasItems);
    model_.organize();
    EXPECT_EQ(made_.state.currentStep(), WizardStep::organization);
}

TEST_F(ScanModelTest, AnEmptyScanLeadsBackOnly) {
    made_.folder.write("source/notes.txt", "text");
    ASSERT_TRUE(made_.scan());
    EXPECT_FALSE(model_.findings().hasItems);
    EXPECT_EQ(model_.findings().photosShare, 0);
    model_.organize();
    EXPECT_EQ(made_.state.currentStep(), WizardStep::scanResults);
    model_.changeSources();
    EXPECT_EQ(made_.state.currentStep(), WizardStep::sources);
}

} // namespace
} // namespace lumeo
