#include "ui/Journey.h"

#include <algorithm>
#include <vector>

namespace lumeo {
namespace {

using testing::MadeProgram;
using testing::waitUntil;

/// The program used with the keyboard only.
class KeyboardTest : public testing::Journey {
protected:
    struct Stop {
        QQuickItem* item;
        std::string name;
        QRectF place; ///< in the window
    };

    /// Moves the focus to the control with this name by Tab, and presses a key there.
    ::testing::AssertionResult press(const char* name, Qt::Key key = Qt::Key_Space) {
        if (!made->shows(name) || !made->tabTo(name)) {
            return ::testing::AssertionFailure()
                   << "Tab does not come to " << name << " but to " << made->focusedName();
        }
        made->press(key);
        return ::testing::AssertionSuccess();
    }

    /// Brings the keyboard to a row of the table by Tab.
    bool tabToTable() {
        for (int presses = 0; presses < 100; ++presses) {
            auto* const face = QAccessible::queryAccessibleInterface(made->window->activeFocusItem());
            if (face != nullptr && face->role() == QAccessible::ListItem) {
                return true;
            }
            made->press(Qt::Key_Tab);
        }
        return false;
    }

    /// The controls that Tab reaches in one round, from the current focus.
    std::vector<Stop> stops() {
        std::vector<Stop> all;
        for (int presses = 0; presses < 100; ++presses) {
            const QImage before = made->window->grabWindow();
            made->press(Qt::Key_Tab);
            auto* item = made->window->activeFocusItem();
            while (MadeProgram::nameOf(item).empty() && item->parentItem() != nullptr) {
                item = item->parentItem();
            }
            if (!all.empty() && item == all.front().item) {
                return all;
            }
            const QRectF place = item->mapRectToScene({0, 0, item->width(), item->height()});
            all.push_back({item, MadeProgram::nameOf(item), place});
            checkSeen(all.back(), before);
        }
        ADD_FAILURE() << "Tab does not come round";
        return all;
    }

    /// Checks that a stop is visible and looks different from before it had the focus.
    void checkSeen(const Stop& stop, const QImage& before) {
        const QImage after = made->window->grabWindow();
        const QRectF place = stop.item->mapRectToScene({0, 0, stop.item->width(), stop.item->height()});
        for (auto* page = stop.item->parentItem(); page != nullptr; page = page->parentItem()) {
            if (page->clip()) {
                const QRectF view = page->mapRectToScene({0, 0, page->width(), page->height()});
                EXPECT_TRUE(view.contains(place)) << stop.name << " is out of sight";
            }
        }
        const QRect around = place.toAlignedRect().adjusted(-4, -4, 4, 4);
        EXPECT_NE(before.copy(around), after.copy(around)) << stop.name << " does not show that it is next";
    }

    /// The controls that the window shows, except choices that the arrow keys reach.
    [[nodiscard]] std::vector<std::string> controls() const {
        std::vector<std::string> names;
        collectControls(made->window->contentItem(), names);
        return names;
    }

    void checkTabOrder(const char* screen) {
        const ::testing::ScopedTrace trace(__FILE__, __LINE__, screen);
        const std::vector<Stop> all = stops();
        std::vector<std::string> reached;
        for (const Stop& stop : all) {
            EXPECT_NE(stop.name, "");
            reached.push_back(stop.name);
            for (auto* above = stop.item->parentItem(); above != nullptr; above = above->parentItem()) {
                reached.push_back(MadeProgram::nameOf(above)); // a list is reached with its row
            }
        }
        for (const std::string& name : controls()) {
            EXPECT_NE(std::ranges::find(reached, name), reached.end()) << "Tab does not reach " << name;
        }
        const auto isHeader = [](const Stop& stop) { return stop.place.bottom() <= 64; };
        for (std::size_t i = 1; i < all.size(); ++i) {
            const QRectF& from = all[i - 1].place;
            const QRectF& to = all[i].place;
            const bool isBack = to.bottom() <= from.top() && to.left() < from.right();
            const bool isLeft =
                to.right() <= from.left() && to.bottom() > from.top() && to.top() < from.bottom();
            EXPECT_TRUE(isHeader(all[i]) || !(isBack || isLeft))
                << all[i].name << " comes after " << all[i - 1].name;
        }
    }

private:
    static void collectControls(QQuickItem* item, std::vector<std::string>& names) {
        if (!item->isVisible() || !item->isEnabled()) {
            return;
        }
        if (auto* face = QAccessible::queryAccessibleInterface(item)) {
            const QAccessible::State state = face->state();
            const auto role = face->role();
            const bool isChoice = role == QAccessible::RadioButton && !state.checked;
            const bool isChoiceOfTags =
                MadeProgram::nameOf(item).starts_with("{"); // reached with the arrow keys
            const bool isControl = role == QAccessible::Button || role == QAccessible::CheckBox ||
                                   role == QAccessible::RadioButton || role == QAccessible::ComboBox ||
                                   role == QAccessible::EditableText || role == QAccessible::PageTab ||
                                   role == QAccessible::ButtonMenu || role == QAccessible::List;
            if (isControl && !isChoice && !isChoiceOfTags) {
                names.push_back(MadeProgram::nameOf(item));
            }
        }
        const auto children = item->childItems();
        for (auto* child : children) {
            collectControls(child, names);
        }
    }
};

TEST_F(KeyboardTest, LeadsThroughAWholeRunAndBack) {
    ASSERT_TRUE(press("Choose Folder..."));
    {
        const Gate gate(made->disk, [](const DiskCall& call) {
            return call.operation == "openForReading" && call.path.lastComponent() == "IMG_0002.JPG";
        });
        ASSERT_TRUE(press("Scan Media", Qt::Key_Return));
        ASSERT_TRUE(gate.awaitArrival());
        ASSERT_TRUE(press("Pause"));
        EXPECT_TRUE(made->shows("Scan Paused"));
        gate.open();
        EXPECT_EQ(made->focusedName(), "Resume");
        made->press(Qt::Key_Space);
    }
    ASSERT_TRUE(made->shows("Scan Complete"));
    made->press(Qt::Key_Tab);
    EXPECT_EQ(made->focusedName(), "Analyze");
    ASSERT_TRUE(press("Analyze Duplicates (SHA-256)"));
    EXPECT_TRUE(made->shows("Exact Duplicates: 2"));
    ASSERT_TRUE(press("Organize", Qt::Key_Return));

    ASSERT_TRUE(made->shows("By Year & Month (Recommended)"));
    made->press(Qt::Key_Tab);
    EXPECT_EQ(made->focusedName(), "By Year & Month (Recommended)");
    made->press(Qt::Key_Up); // wraps round to the last one
    ASSERT_TRUE(made->tabTo("Custom Template Pattern:"));
    made->press(Qt::Key_A, Qt::ControlModifier);
    made->type("{YYYY}-");
    ASSERT_TRUE(made->tabTo("{YYYY}"));
    made->press(Qt::Key_Right);
    made->press(Qt::Key_Right);
    EXPECT_EQ(made->focusedName(), "{MM}");
    made->press(Qt::Key_Space);
    EXPECT_EQ(made->state.organizationPlan().customTemplate, "{YYYY}-{MM}");
    made->desktop.folders = {archive()};
    ASSERT_TRUE(press("Choose Destination Folder or Drive..."));
    ASSERT_TRUE(press("Preview Changes", Qt::Key_Return));
    ASSERT_TRUE(arrives(WizardStep::preview));
    ASSERT_TRUE(waitUntil([this] { return !made->state.isPlanning(); }));

    made->press(Qt::Key_F, Qt::ControlModifier);
    made->type("undated");
    EXPECT_TRUE(made->shows("1 / 6"));
    made->press(Qt::Key_Down); // to the first row, while the keyboard stays
    EXPECT_EQ(made->focusedName(), "Search by filename...");
    EXPECT_TRUE(made->shows("Media Inspector"));
    made->press(Qt::Key_Escape);
    EXPECT_TRUE(waitUntil([this] { return made->find("1 / 6") == nullptr; }));
    ASSERT_TRUE(made->tabTo("All 6"));
    made->press(Qt::Key_Right);
    EXPECT_EQ(made->focusedName(), "Photos 5");
    EXPECT_TRUE(made->shows("5 / 6"));
    ASSERT_TRUE(tabToTable());
    made->press(Qt::Key_Down);
    EXPECT_TRUE(made->shows("Media Inspector"));
    ASSERT_TRUE(made->tabTo("How to Use")); // leaves the screen
    made->press(Qt::Key_Escape);
    EXPECT_TRUE(waitUntil([this] { return made->find("Media Inspector") == nullptr; }));

    ASSERT_TRUE(press("Start Copy", Qt::Key_Return));
    ASSERT_TRUE(made->shows("Organization Complete"));
    EXPECT_TRUE(areThere(copied()));
    made->press(Qt::Key_Tab);
    EXPECT_EQ(made->focusedName(), "Export CSV");
    ASSERT_TRUE(press("Undo Organization..."));
    ASSERT_TRUE(waitUntil([this] { return made->focusedName() == "Cancel"; }));
    ASSERT_TRUE(press("Yes, Undo Organization", Qt::Key_Return));
    EXPECT_TRUE(made->shows("Rollback complete: 5 files restored/removed."));
    EXPECT_TRUE(areThere(originals));
    ASSERT_TRUE(press("Done"));
    EXPECT_TRUE(made->shows("Last Completed Operation"));
}

/// What an assistive program gets of the window.
TEST_F(KeyboardTest, AReaderGetsRolesStatesValuesAndTheRowItIsOn) {
    const auto face = [this](const char* name) {
        EXPECT_TRUE(made->shows(name)) << name;
        return QAccessible::queryAccessibleInterface(made->find(name));
    };
    QCoreApplication::processEvents(); // the toolkit has given its controls their own roles
    EXPECT_EQ(face("Sources")->role(), QAccessible::PageTab);
    EXPECT_TRUE(face("Sources")->state().selected);
    EXPECT_EQ(face("Report")->text(QAccessible::Description), QStringLiteral("Not available yet"));
    EXPECT_EQ(face("Application Language")->role(), QAccessible::ButtonMenu);
    EXPECT_EQ(face("Scan Media")->text(QAccessible::Description),
              QStringLiteral("Add a folder or a drive first."));

    auto& state = made->state;
    state.addSource(home / "Pictures");
    state.setDestination(archive());
    state.startScan();
    ASSERT_TRUE(made->shows("Scan Complete"));
    state.proceedToNextStep();
    state.previewChanges();
    ASSERT_TRUE(waitUntil([&] { return !state.isPlanning(); }));
    ASSERT_TRUE(made->shows("undated.jpg"));
    ASSERT_TRUE(tabToTable());
    made->press(Qt::Key_U); // types ahead
    auto* const row = QAccessible::queryAccessibleInterface(made->window->activeFocusItem());
    EXPECT_EQ(row->role(), QAccessible::ListItem);
    EXPECT_TRUE(row->text(QAccessible::Name).startsWith(QStringLiteral("undated.jpg")));
    EXPECT_TRUE(row->state().focused);
    EXPECT_TRUE(row->state().selected);

    const Gate gate(made->disk, "createFile");
    state.startOperation();
    ASSERT_TRUE(gate.awaitArrival());
    ASSERT_TRUE(made->shows("Pause"));
    auto* const bar = QAccessible::queryAccessibleInterface(
        made->window->findChild<QQuickItem*>(QStringLiteral("progress")));
    EXPECT_EQ(bar->role(), QAccessible::ProgressBar);
    EXPECT_EQ(bar->text(QAccessible::Description), QStringLiteral("0%"));
}

TEST_F(KeyboardTest, TabReachesEverythingInOrderAndShowsWhereItIs) {
    made->window->resize(900, 650);
    auto& state = made->state;
    checkTabOrder("sources, empty");
    state.addSource(home / "card");
    state.addSource(home / "Pictures");
    checkTabOrder("sources");
    {
        const Gate gate(made->disk, "openForReading");
        state.startScan();
        ASSERT_TRUE(gate.awaitArrival());
        checkTabOrder("scanning");
    }
    ASSERT_TRUE(made->shows("Scan Complete"));
    checkTabOrder("results");
    state.proceedToNextStep();
    OrganizationPlan plan = state.organizationPlan();
    plan.preset = OrganizationPreset::custom;
    state.setOrganizationPlan(plan);
    ASSERT_TRUE(made->click("Advanced Settings"));
    checkTabOrder("organization");
    state.setDestination(archive());
    state.previewChanges();
    ASSERT_TRUE(waitUntil([&] { return !state.isPlanning(); }));
    ASSERT_TRUE(made->shows("undated.jpg"));
    ASSERT_TRUE(made->click("undated.jpg"));
    checkTabOrder("preview");
    {
        const Gate gate(made->disk, "write");
        state.startOperation();
        ASSERT_TRUE(gate.awaitArrival());
        checkTabOrder("processing");
    }
    ASSERT_TRUE(made->shows("Organization Complete"));
    checkTabOrder("report");
}

} // namespace
} // namespace lumeo
