#include "ui/MadeProgram.h"

#include <gtest/gtest.h>

#include <set>

namespace lumeo {
namespace {

using testing::MadeProgram;
using testing::waitUntil;

/// Looks for texts that are cut, in every language at the smallest size. Names, paths and the table's cells
/// do not count: the program cannot control their length, and a tooltip shows the rest.
class TextFitTest : public ::testing::Test {
protected:
    TextFitTest() {
        made_.window->resize(900, 650);
        made_.volumes.add(FilePath("/"), 512'000'000'000, 190'000'000'000);
        for (int i = 0; i < 30; ++i) {
            TinyPhoto photo;
            photo.dateTimeOriginal = i % 7 == 0 ? "" : "2021:03:14 15:30:45";
            made_.folder.write("Pictures/" + std::to_string(i) + ".jpg", tinyJpeg(photo));
        }
    }

    void check(const char* state) { check(state, *made_.window); }

    void check(const char* state, QQuickWindow& window) {
        for (const AppLanguage language : allCases<AppLanguage>()) {
            made_.program.localization().setLanguage(language);
            MadeProgram::draw(window);
            QStringList cut;
            collectCut(window.contentItem(), cut);
            EXPECT_TRUE(cut.isEmpty()) << state << " in " << languageCode(language).toStdString() << ": "
                                       << cut.join(QStringLiteral(" | ")).toStdString();
        }
        made_.program.localization().setLanguage(AppLanguage::english);
        MadeProgram::draw(window);
    }

    void choose(const char* name) {
        ASSERT_TRUE(made_.shows(name)) << name;
        made_.click(name);
    }

    QQuickItem& child(const char* name) {
        return *made_.window->findChild<QQuickItem*>(QString::fromLatin1(name));
    }

    MadeProgram made_;

private:
    static void collectCut(QQuickItem* item, QStringList& cut) {
        if (!item->isVisible() || item->objectName() == QLatin1String("table")) {
            return;
        }
        if (isCut(*item)) {
            cut.append(item->property("text").toString());
        }
        for (auto* child : item->childItems()) {
            collectCut(child, cut);
        }
    }

    static bool isCut(const QQuickItem& item) {
        const QVariant contentWidth = item.property("contentWidth");
        const QVariant elide = item.property("elide");
        if (!elide.isValid() || item.property("text").toString().isEmpty() || elide == Qt::ElideMiddle) {
            return false;
        }
        constexpr double rounding = 1;
        return item.property("truncated").toBool() || contentWidth.toDouble() > item.width() + rounding ||
               item.property("contentHeight").toDouble() > item.height() + rounding;
    }
};

TEST_F(TextFitTest, OnTheFirstThreeSteps) {
    auto& state = made_.state;
    check("sources, none");
    state.addSource(made_.folder / "Pictures");
    check("sources");
    state.startScan();
    state.pauseScan();
    check("paused scan");
    state.resumeScan();
    ASSERT_TRUE(waitUntil([&] { return !state.isScanning(); }));
    check("results");
    state.proceedToNextStep();
    check("organization without a destination");
    state.setDestination(made_.folder / "Archive");
    OrganizationPlan plan = state.organizationPlan();
    plan.preset = OrganizationPreset::custom;
    state.setOrganizationPlan(plan);
    choose("Advanced Settings");
    check("organization");
}

TEST_F(TextFitTest, OnTheLastThreeSteps) {
    auto& state = made_.state;
    state.addSource(made_.folder / "Pictures");
    state.startScan();
    ASSERT_TRUE(waitUntil([&] { return !state.isScanning(); }));
    state.proceedToNextStep();
    state.setDestination(made_.folder / "Archive");
    OrganizationPlan plan = state.organizationPlan();
    plan.operationMode = OperationMode::move;
    state.setOrganizationPlan(plan);
    state.previewChanges();
    ASSERT_TRUE(waitUntil([&] { return !state.isPlanning(); }));
    child("table").forceActiveFocus();
    made_.press(Qt::Key_Down);
    check("preview with its inspector");
    choose("Start Move...");
    check("question before a move");
    made_.press(Qt::Key_Escape);

    QObject::connect(&state, &AppState::isProcessingChanged, &state, &AppState::pauseOperation);
    state.startOperation();
    ASSERT_TRUE(waitUntil([&] { return state.isProcessing(); }));
    check("paused run");
    made_.window->close();
    check("question before closing");
    made_.press(Qt::Key_Escape);
    state.resumeOperation();
    ASSERT_TRUE(waitUntil([&] { return !state.isProcessing(); }));
    check("report");
    choose("Undo Organization...");
    check("question before an undo");
    choose("Yes, Undo Organization");
    ASSERT_TRUE(waitUntil([&] { return child("undo").isEnabled(); }));
    check("report of an undo");
    state.finishCompletedOperation();
    check("sources after a run");
}

TEST_F(TextFitTest, OnTheSheetsAndInTheSettings) {
    for (const char* name : {"How to Use", "Privacy & Security", "Performance Notice", "About LUMEO."}) {
        choose(name);
        check(name);
        made_.press(Qt::Key_Escape);
    }
    choose("Settings");
    const auto windows = QGuiApplication::topLevelWindows();
    for (auto* window : windows) {
        auto* settings = qobject_cast<QQuickWindow*>(window);
        if (settings != nullptr && settings != made_.window && settings->isVisible()) {
            check("settings", *settings);
            return;
        }
    }
    FAIL() << "The settings do not come up";
}

} // namespace
} // namespace lumeo
