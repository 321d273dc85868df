#include "ui/Journey.h"

namespace lumeo {
namespace {

using testing::waitUntil;

/// The program as a user with a mouse sees it, and what is on the disk afterwards.
class JourneyTest : public testing::Journey {
protected:
    bool click(const char* name) { return made->shows(name) && made->click(name); }

    /// Goes on until everything is planned, without looking for duplicates.
    void plan() {
        ASSERT_TRUE(click("Choose Folder..."));
        ASSERT_TRUE(click("Scan Media"));
        ASSERT_TRUE(click("Organize"));
        ASSERT_NO_FATAL_FAILURE(choosePattern());
        ASSERT_NO_FATAL_FAILURE(chooseDestination());
    }
    void choosePattern() {
        ASSERT_TRUE(click("Custom Template"));
        ASSERT_TRUE(click("Custom Template Pattern:"));
        made->press(Qt::Key_A, Qt::ControlModifier);
        ASSERT_TRUE(click("{YYYY}"));
        made->type("-");
        ASSERT_TRUE(click("{MM}"));
        EXPECT_EQ(made->state.organizationPlan().customTemplate, "{YYYY}-{MM}");
    }
    void chooseDestination() {
        made->desktop.folders = {archive()};
        ASSERT_TRUE(click("Choose Destination Folder or Drive..."));
        EXPECT_TRUE(made->shows("Archive"));
    }
    void listenToTheEnd() {
        QObject::connect(&made->state, &AppState::operationFinished,
                         [this](const std::shared_ptr<const OperationManifest>& journal, bool isCancelled) {
                             journal_ = journal;
                             isCancelled_ = isCancelled;
                         });
    }
    /// Whether the journal lists the file as archived.
    [[nodiscard]] bool isJournalled(const FilePath& file) const {
        return std::ranges::any_of(journal_->items, [&file](const FileTransactionItem& record) {
            return record.originalPath == file && record.status == TransactionStatus::verified;
        });
    }
    void undo() {
        ASSERT_TRUE(click("Undo Organization..."));
        ASSERT_TRUE(click("Cancel"));
        EXPECT_TRUE(waitUntil([this] { return made->find("Yes, Undo Organization") == nullptr; }));
        ASSERT_TRUE(click("Undo Organization..."));
        ASSERT_TRUE(click("Yes, Undo Organization"));
    }
    std::shared_ptr<const OperationManifest> journal_;
    bool isCancelled_ = false;
};

TEST_F(JourneyTest, MovesOnceConfirmedAndBringsEverythingBack) {
    ASSERT_NO_FATAL_FAILURE(plan());
    ASSERT_TRUE(click("Move"));
    ASSERT_TRUE(click("Preview Changes"));
    ASSERT_TRUE(click("Start Move..."));
    ASSERT_TRUE(click("Cancel"));
    EXPECT_TRUE(waitUntil([this] { return made->find("Yes, Move Files") == nullptr; }));
    EXPECT_TRUE(areThere(originals));

    ASSERT_TRUE(click("Start Move..."));
    ASSERT_TRUE(click("Yes, Move Files"));
    ASSERT_TRUE(made->shows("Organization Complete"));
    EXPECT_TRUE(areThere(moved()));

    ASSERT_NO_FATAL_FAILURE(undo());
    EXPECT_TRUE(made->shows("Rollback complete: 6 files restored/removed."));
    EXPECT_TRUE(areThere(originals));
}

TEST_F(JourneyTest, LosesNothingWhenTheRunIsCancelledWithinAFile) {
    ASSERT_NO_FATAL_FAILURE(plan());
    ASSERT_TRUE(click("Move"));
    ASSERT_TRUE(click("Preview Changes"));
    listenToTheEnd();
    const Gate gate(made->disk, [files = 0](const DiskCall& call) mutable {
        return call.operation == "write" && ++files == 3;
    });
    ASSERT_TRUE(click("Start Move..."));
    ASSERT_TRUE(click("Yes, Move Files"));
    ASSERT_TRUE(gate.awaitArrival());
    ASSERT_TRUE(click("Pause"));
    EXPECT_TRUE(made->shows("Organization Paused"));
    ASSERT_TRUE(click("Cancel Operation"));
    ASSERT_TRUE(arrives(WizardStep::preview));
    gate.open();
    ASSERT_TRUE(waitUntil([this] { return journal_ != nullptr; }));

    EXPECT_TRUE(isCancelled_);
    EXPECT_EQ(journal_->isCancelled, true);
    auto those = places();
    std::erase_if(those, [this](const auto& place) { return !isJournalled(home / place.first); });
    EXPECT_EQ(those.size(), 2U);
    EXPECT_TRUE(areThere(moved(those))) << "every file once, and nothing half made";
    EXPECT_TRUE(made->find("Start Move...")->isEnabled());
}

TEST_F(JourneyTest, TakesBackTheQuestionAtClosingWhenTheRunEndsMeanwhile) {
    ASSERT_NO_FATAL_FAILURE(plan());
    ASSERT_TRUE(click("Preview Changes"));
    const Gate gate(made->disk, "write");
    ASSERT_TRUE(click("Start Copy"));
    ASSERT_TRUE(gate.awaitArrival());
    made->window->close();
    ASSERT_TRUE(made->shows("Quit LUMEO.?"));
    gate.open();
    ASSERT_TRUE(arrives(WizardStep::report));
    EXPECT_TRUE(waitUntil([this] { return made->find("Quit LUMEO.?") == nullptr; }));
    EXPECT_TRUE(made->window->isVisible());
}

TEST_F(JourneyTest, AsksBeforeItIsClosedDuringARunAndThenEndsCleanly) {
    ASSERT_NO_FATAL_FAILURE(plan());
    ASSERT_TRUE(click("Preview Changes"));
    bool hasQuit = false;
    QObject::connect(&made->engine, &QQmlEngine::quit, [&] { hasQuit = true; });
    const Gate gate(made->disk, [files = 0](const DiskCall& call) mutable {
        return call.operation == "write" && ++files == 2;
    });
    ASSERT_TRUE(click("Start Copy"));
    ASSERT_TRUE(gate.awaitArrival());

    made->window->close();
    EXPECT_TRUE(made->shows("Quit LUMEO.?"));
    made->press(Qt::Key_Escape);
    EXPECT_TRUE(waitUntil([this] { return made->find("Quit LUMEO.?") == nullptr; }));
    made->press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(made->shows("Quit LUMEO.?"));
    EXPECT_TRUE(made->window->isVisible());
    EXPECT_TRUE(made->state.isProcessing());
    EXPECT_FALSE(hasQuit);

    ASSERT_TRUE(made->click("Quit")); // in the question, which is above the screen
    EXPECT_TRUE(waitUntil([&] { return hasQuit; }));
    gate.open();
    made.reset();
    Files expected = originals;
    const Files archived = filesBelow(archive());
    EXPECT_EQ(archived.size(), 1U) << "the one that was whole before";
    for (const auto& [from, to] : places()) {
        if (archived.contains(to.substr(std::string("Archive/").size()))) {
            expected[to] = originals.at(from);
        }
    }
    EXPECT_TRUE(areThere(expected));
}

TEST_F(JourneyTest, AsksBeforeItIsClosedDuringAnUndoAndThenEndsCleanly) {
    ASSERT_NO_FATAL_FAILURE(plan());
    ASSERT_TRUE(click("Preview Changes"));
    ASSERT_TRUE(click("Start Copy"));
    ASSERT_TRUE(made->shows("Organization Complete"));
    bool hasQuit = false;
    QObject::connect(&made->engine, &QQmlEngine::quit, [&] { hasQuit = true; });
    const Gate gate(made->disk, [files = 0](const DiskCall& call) mutable {
        return call.operation == "removeFile" && ++files == 2;
    });
    ASSERT_NO_FATAL_FAILURE(undo());
    ASSERT_TRUE(gate.awaitArrival());
    ASSERT_TRUE(click("Preview"));
    EXPECT_FALSE(made->find("Start Copy")->isEnabled());
    EXPECT_FALSE(made->state.isPlanning());

    made->window->close();
    EXPECT_TRUE(made->shows("Quit LUMEO.?"));
    EXPECT_FALSE(hasQuit);
    ASSERT_TRUE(made->click("Quit"));
    EXPECT_TRUE(waitUntil([&] { return hasQuit; }));
    gate.open();
    made.reset();
    EXPECT_EQ(filesBelow(archive()).size(), places().size() - 2) << "it ended with the file in hand";
    for (const auto& [name, content] : originals) {
        EXPECT_EQ(contentOf(home / name), content);
    }
}

} // namespace
} // namespace lumeo
