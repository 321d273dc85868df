#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QSignalSpy>

#include "ui/MadeState.h"
#include "ui/models/KeyTranslator.h"
#include "ui/models/ShellModel.h"

namespace lumeo {
namespace {

class ShellModelTest : public ::testing::Test {
protected:
    [[nodiscard]] bool step(WizardStep which, WizardSteps::Role role) {
        return shell_.steps()->index(static_cast<int>(which)).data(role).toBool();
    }

    testing::MadeState made_;
    ShellModel shell_{made_.state, made_.localization, made_.preferences};
};

TEST_F(ShellModelTest, StepsAreReachedOnceTheyWereCompleted) {
    EXPECT_TRUE(step(WizardStep::sources, WizardSteps::isCurrentRole));
    EXPECT_TRUE(step(WizardStep::sources, WizardSteps::isReachableRole));
    EXPECT_FALSE(step(WizardStep::scanResults, WizardSteps::isReachableRole));

    made_.writePhoto("source/a.jpg");
    QSignalSpy changes(shell_.steps(), &QAbstractItemModel::dataChanged);
    ASSERT_TRUE(made_.scan());
    EXPECT_FALSE(changes.isEmpty());
    EXPECT_TRUE(step(WizardStep::sources, WizardSteps::isCompletedRole));
    EXPECT_TRUE(step(WizardStep::scanResults, WizardSteps::isCurrentRole));
    EXPECT_EQ(shell_.tint(), QStringLiteral("cyan"));

    shell_.navigateTo(static_cast<int>(WizardStep::preview));
    EXPECT_EQ(made_.state.currentStep(), WizardStep::scanResults) << "it was never reached before";
    shell_.navigateTo(static_cast<int>(WizardStep::sources));
    EXPECT_EQ(made_.state.currentStep(), WizardStep::sources);
    EXPECT_TRUE(step(WizardStep::scanResults, WizardSteps::isReachableRole)) << "it was completed";
}

TEST_F(ShellModelTest, LanguagesChangeTheTextsThatComeByKey) {
    KeyTranslator translator(made_.localization);
    QCoreApplication::installTranslator(&translator);
    EXPECT_EQ(qtTrId("step.sources"), QStringLiteral("Sources"));

    QSignalSpy changes(&shell_, &ShellModel::currentLanguageChanged);
    const int german = static_cast<int>(AppLanguage::german);
    shell_.chooseLanguage(german);
    shell_.chooseLanguage(99);
    EXPECT_EQ(shell_.currentLanguage(), german);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(shell_.languages().at(german), QStringLiteral("\U0001F1E9\U0001F1EA Deutsch"));
    EXPECT_EQ(qtTrId("step.sources"), QStringLiteral("Quellen"));
    EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), QStringLiteral("Cancel"))
        << "the toolkit's own texts are none of ours";
    QCoreApplication::removeTranslator(&translator);
}

TEST_F(ShellModelTest, TheAppearanceFlipsAndFollowsTheSettings) {
    QSignalSpy changes(&shell_, &ShellModel::appearanceChanged);
    EXPECT_FALSE(shell_.isDark());
    shell_.flipAppearance();
    EXPECT_EQ(made_.preferences.appearance(), AppAppearance::dark);
    made_.preferences.setAppearance(AppAppearance::light);
    EXPECT_FALSE(shell_.isDark());
    EXPECT_EQ(changes.count(), 2);
}

TEST_F(ShellModelTest, AFolderIsAddedFromAnywhereOnTheSourcesScreen) {
    made_.writePhoto("source/a.jpg");
    ASSERT_TRUE(made_.scan());
    made_.desktop.folders = {made_.folder / "source", made_.folder.path()};
    shell_.addFolder();
    EXPECT_EQ(made_.state.currentStep(), WizardStep::sources);
    EXPECT_EQ(made_.state.sources().size(), 2U);
}

} // namespace
} // namespace lumeo
