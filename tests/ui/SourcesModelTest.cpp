#include "ui/models/SourcesModel.h"

#include "support/SystemSettings.h"
#include "ui/MadeState.h"
#include "ui/models/RunHistoryModel.h"

#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QSignalSpy>

namespace lumeo {
namespace {

using ::testing::ElementsAre;
using testing::MadeState;

class SourcesModelTest : public ::testing::Test {
protected:
    [[nodiscard]] QVariant card(int row, SourceCards::Role role) {
        return model_.cards()->data(model_.cards()->index(row), role);
    }
    [[nodiscard]] std::vector<std::string> paths() const {
        std::vector<std::string> paths;
        for (const auto& source : made_.state.sources()) {
            paths.push_back(source.url.bytes());
        }
        return paths;
    }

    MadeState made_;
    SourcesModel model_{made_.state, made_.localization};
};

TEST_F(SourcesModelTest, ADropAddsTheFilesAndFoldersItNamesByteByByteAndNothingElse) {
    const QByteArray dropped(
        "# from the desktop\r\nfile:///photos/2019%20%C3%A9t%E9\r\n"
        "https://example.org/photo.jpg\r\nholidays\r\n\r\nfile://localhost/photos/b/\r\n");
    EXPECT_TRUE(model_.takes(dropped));
    model_.drop(dropped);
    EXPECT_THAT(paths(), ElementsAre("/photos/2019 \xC3\xA9t\xE9", "/photos/b"));

    for (const auto* text : {"holidays", "", "https://example.org/", "file://"}) {
        EXPECT_FALSE(model_.takes(text)) << text;
        model_.drop(text);
    }
    EXPECT_EQ(model_.count(), 2);
    EXPECT_EQ(card(0, SourceCards::pathRole), QStringLiteral(u"/photos/2019 ét\uFFFD"));
}

TEST_F(SourcesModelTest, ACardTellsWhatTheFolderLiesOn) {
    made_.volumes.add(FilePath("/media/card"), 64'000'000'000, 16'000'000'000, true);
    made_.volumes.add(FilePath("/data"), std::nullopt, std::nullopt);
    model_.drop("file:///media/card/DCIM\nfile:///data\nfile:///data/photos\n");

    EXPECT_EQ(card(1, SourceCards::symbolRole), QStringLiteral("folder.fill")) << "until it is measured";
    EXPECT_TRUE(testing::waitUntil([this] {
        return card(0, SourceCards::isRemovableRole).toBool() &&
               card(1, SourceCards::symbolRole) == QStringLiteral("internaldrive.fill");
    }));
    EXPECT_EQ(card(0, SourceCards::symbolRole), QStringLiteral("externaldrive.fill"));
    EXPECT_EQ(card(0, SourceCards::capacityTextRole), QStringLiteral("48 GB used / 64 GB"));
    EXPECT_EQ(card(0, SourceCards::usedShareRole), 0.75);
    EXPECT_EQ(card(1, SourceCards::capacityTextRole), QString());
    EXPECT_EQ(card(1, SourceCards::usedShareRole), -1);
    EXPECT_EQ(card(2, SourceCards::symbolRole), QStringLiteral("folder.fill"));
}

TEST_F(SourcesModelTest, CardsComeAndGoOneByOneWithTheirSources) {
    EXPECT_FALSE(model_.canScan());
    made_.desktop.folders = {FilePath("/a"), FilePath("/b"), FilePath("/c"), FilePath("/a")};
    model_.chooseFolders();
    EXPECT_EQ(model_.countText(), QStringLiteral("3"));
    EXPECT_TRUE(model_.canScan());

    const QSignalSpy removed(model_.cards(), &SourceCards::rowsRemoved);
    const QSignalSpy reset(model_.cards(), &SourceCards::modelReset);
    model_.remove(1);
    model_.remove(7);
    EXPECT_THAT(paths(), ElementsAre("/a", "/c"));
    EXPECT_EQ(card(1, SourceCards::pathRole), QStringLiteral("/c"));
    EXPECT_EQ(removed.size(), 1);
    model_.clear();
    EXPECT_EQ(model_.count(), 0);
    EXPECT_EQ(reset.size(), 0);
}

TEST(RunHistoryModelTest, OffersToTakeBackWhatRanBeforeAndSaysWhatThatWouldLeave) {
    MadeState made;
    made.writePhoto("source/a.jpg");
    made.writePhoto("source/b.jpg");
    const FilePath gone = made.writePhoto("source/c.jpg");
    RunHistoryModel model(made.state, made.localization);
    EXPECT_FALSE(model.canUndoCompleted());
    ASSERT_TRUE(made.goToReport());
    ASSERT_TRUE(testing::waitUntil([&] { return model.canUndoCompleted(); }));
    EXPECT_EQ(model.interrupted(), QString());

    std::filesystem::remove(gone.bytes());
    model.considerCompleted();
    EXPECT_TRUE(model.showUndoAlert());
    ASSERT_TRUE(testing::waitUntil([&] { return !model.forecast().isEmpty(); }));
    EXPECT_EQ(model.forecast(),
              QStringLiteral("1 file will be left in place: its original is no longer there."));
    model.keep();
    model.confirmUndo(); // the question is closed
    EXPECT_FALSE(made.state.isUndoing());
    model.considerCompleted();
    model.confirmUndo();
    ASSERT_TRUE(testing::waitUntil([&] { return made.state.undoResult().has_value(); }));
    EXPECT_EQ(made.state.undoResult()->restoredCount, 2);
    EXPECT_EQ(made.state.undoResult()->failedCount, 1);
    EXPECT_TRUE(testing::waitUntil([&] { return model.canUndoCompleted(); }))
        << "what is left can be tried again";
}

TEST(LastOperationTextsTest, TellTheLastRunInTheLanguageOfTheInterface) {
    const ScopedTimeZone zone("UTC");
    MadeState made;
    EXPECT_FALSE(SourcesModel(made.state, made.localization).lastOperation().isPresent);

    const LastOperationSummary summary{.operationType = "Move",
                                       .processedCount = 12345,
                                       .verifiedCount = 12000,
                                       .skippedCount = 344,
                                       .errorCount = 1,
                                       .bytesTransferred = 1'500'000'000,
                                       .duration = 3725,
                                       .destinationDisplayName = "Archive",
                                       .completedAt = Instant(std::chrono::seconds(1'600'000'000))};
    auto texts = LastOperationTexts::of(summary, made.localization);
    EXPECT_EQ(texts.line.toStdString(),
              "Operation: Move  •  Destination: Archive  •  Completed: 9/13/20, 12:26\u202FPM");
    EXPECT_EQ(texts.files, QStringLiteral("12,345"));
    EXPECT_EQ(texts.transferred, QStringLiteral("1.5 GB"));
    EXPECT_TRUE(texts.hasErrors);
    EXPECT_EQ(texts.duration, QStringLiteral("1h 2m"));

    made.localization.setLanguage(AppLanguage::german);
    EXPECT_TRUE(LastOperationTexts::of(summary, made.localization).line.contains(QStringLiteral("13.09.20")));
}

} // namespace
} // namespace lumeo
