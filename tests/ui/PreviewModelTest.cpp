#include "ui/models/PreviewModel.h"

#include "support/Gate.h"
#include "ui/MadeState.h"
#include "ui/thumbnails/ThumbnailService.h"

#include <gtest/gtest.h>

namespace lumeo {
namespace {

using testing::MadeState;
using testing::waitUntil;

class PreviewModelTest : public ::testing::Test {
protected:
    void preview() {
        made_.writePhoto("source/a.jpg");
        made_.folder.write("source/b.mov", "no movie");
        ASSERT_TRUE(made_.goToPreview());
    }
    [[nodiscard]] QStringList chips() const {
        QStringList list;
        for (const QVariant& chip : model_.chips()) {
            list.append(chip.toMap()[QStringLiteral("text")].toString());
        }
        return list;
    }
    [[nodiscard]] QString inspected(int section, int row) {
        const QVariantMap map = model_.inspector()->sections()[section].toMap();
        return map[QStringLiteral("rows")].toList()[row].toMap()[QStringLiteral("value")].toString();
    }

    MadeState made_;
    ThumbnailService thumbnails_;
    PreviewModel model_{made_.state, made_.localization, thumbnails_, made_.desktop, made_.preferences};
};

TEST_F(PreviewModelTest, CountsWhatIsToBeDone) {
    preview();
    EXPECT_EQ(chips(), (QStringList{QStringLiteral("2 to copy"), QStringLiteral("1 unknown date")}));
    made_.setMode(OperationMode::move);
    made_.localization.setLanguage(AppLanguage::german);
    EXPECT_EQ(chips().front(), QStringLiteral("2 to move"));
    EXPECT_TRUE(chips().back().endsWith(
        made_.localization.localized(QStringLiteral("preview.filter.unknownDate")).toLower()));
}

TEST_F(PreviewModelTest, BeginsAnewEachTimeItIsShown) {
    preview();
    model_.setSearchText(QStringLiteral("a."));
    model_.setSelectedFilter(QStringLiteral("photos"));
    model_.inspect(0);
    EXPECT_EQ(model_.listed(), QStringLiteral("1 / 2"));
    model_.back();
    EXPECT_EQ(made_.state.currentStep(), WizardStep::organization);
    made_.state.navigateToStep(WizardStep::preview);
    made_.state.previewChanges();
    ASSERT_TRUE(waitUntil([this] { return !made_.state.isPlanning(); }));
    EXPECT_EQ(model_.searchText(), QString());
    EXPECT_EQ(model_.selectedFilter(), QStringLiteral("all"));
    EXPECT_FALSE(model_.inspector()->isOpen());
    EXPECT_EQ(model_.rows()->count(), 2);
}

TEST_F(PreviewModelTest, InspectsTheChosenRowAndKeepsItThroughANewCatalogue) {
    preview();
    EXPECT_EQ(model_.currentRow(), -1);
    model_.inspect(100); // the last one
    EXPECT_EQ(model_.currentRow(), 1);
    model_.inspect(-1);
    EXPECT_EQ(model_.currentRow(), 0);
    model_.setSearchText(QStringLiteral("a.jpg"));
    model_.inspect(0);
    EXPECT_EQ(inspected(0, 0), QStringLiteral("a.jpg"));
    EXPECT_EQ(inspected(2, 2), QString(QChar(0x2014)));
    EXPECT_EQ(inspected(3, 1), QStringLiteral("Camera"));
    EXPECT_TRUE(waitUntil([this] { return !model_.inspector()->picture().isNull(); }));

    made_.state.startPlanning();
    ASSERT_TRUE(waitUntil([this] { return !made_.state.isPlanning(); }));
    EXPECT_EQ(model_.currentRow(), 0);
    EXPECT_FALSE(model_.inspector()->picture().isNull());

    model_.setSearchText(QStringLiteral("b.mov"));
    EXPECT_EQ(model_.currentRow(), -1); // not in the list, but still in the panel
    EXPECT_TRUE(model_.inspector()->isOpen());
    model_.inspector()->close();
    EXPECT_FALSE(model_.inspector()->isOpen());
    EXPECT_EQ(inspected(0, 0), QStringLiteral("a.jpg")); // still readable while the panel closes
    model_.inspect(0);
    EXPECT_TRUE(model_.inspector()->picture().isNull());
}

TEST_F(PreviewModelTest, CopiesAtOnceAndSaysWhyARunIsRefused) {
    preview();
    made_.volumes.add(FilePath("/"), 1000, made_.state.requiredOutputSizeBytes());
    model_.start();
    EXPECT_FALSE(model_.canStart()) << "twice";
    ASSERT_TRUE(waitUntil([this] { return model_.canStart(); }));
    EXPECT_TRUE(model_.refusal().contains(QStringLiteral("1 byte missing")))
        << model_.refusal().toStdString();
    made_.volumes.add(made_.folder / "larger", 1'000'000, 500'000);
    made_.folder.write("larger/readme", "");
    made_.state.setDestination(made_.folder / "larger");
    EXPECT_EQ(model_.refusal(), QString());
    ASSERT_TRUE(waitUntil([this] { return model_.canStart(); }));
    made_.volumes.add(FilePath("/"), 1'000'000, 500'000);
    model_.start();
    EXPECT_TRUE(waitUntil([this] { return made_.state.currentStep() == WizardStep::report; }));
    EXPECT_EQ(model_.refusal(), QString());
}

TEST_F(PreviewModelTest, TellsWhichTwinStaysOnceTheyAreKnownAndWhatIsMissingBeforeAStart) {
    EXPECT_EQ(model_.missing(), QStringLiteral("There is nothing to organize."));
    made_.writePhoto("source/a.jpg");
    made_.writePhoto("source/b.jpg");
    ASSERT_TRUE(made_.goToPreview());
    const auto duplicates = [this] {
        return model_.filters()[4].toMap()[QStringLiteral("count")].toString();
    };
    EXPECT_EQ(duplicates(), QStringLiteral("\u2013"));
    {
        const Gate gate(made_.disk, "openForReading");
        model_.analyzeDuplicates();
        ASSERT_TRUE(gate.awaitArrival());
        EXPECT_NE(model_.analysis(), QString());
        EXPECT_TRUE(model_.canStart());
    }
    ASSERT_TRUE(waitUntil([this] { return !model_.isAnalyzing() && !made_.state.isPlanning(); }));
    EXPECT_EQ(duplicates(), QStringLiteral("2"));
    EXPECT_EQ(model_.analysis(), QString());

    model_.seek(QStringLiteral("B"));
    EXPECT_EQ(inspected(0, 0), QStringLiteral("b.jpg"));
    EXPECT_TRUE(inspected(1, 0).contains(QStringLiteral("\n→ "))) << "the first one, with its place";
    EXPECT_FALSE(inspected(1, 1).contains(QStringLiteral("→"))) << "the other is skipped";
    model_.inspector()->showFile();
    EXPECT_EQ(made_.desktop.shown, std::vector{made_.folder / "source/b.jpg"});
    model_.setColumnWidths({300, 0, 0, 0, 0, 0});
    EXPECT_EQ(made_.preferences.columnWidths().value(0), 300);
}

} // namespace
} // namespace lumeo
