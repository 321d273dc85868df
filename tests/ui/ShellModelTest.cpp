#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QSignalSpy>

#include "ui/MadeState.h"
#include "ui/models/KeyTranslator.h"
#include "ui/models/ShellModel.h"

namespace lumeo {
namespace {

TEST(ShellModelTest, LanguagesChangeTheTextsThatComeByKey) {
    testing::MadeState made;
    ShellModel shell(made.state, made.localization, made.preferences);
    KeyTranslator translator(made.localization);
    QCoreApplication::installTranslator(&translator);
    EXPECT_EQ(qtTrId("step.sources"), QStringLiteral("Sources"));

    QSignalSpy changes(&shell, &ShellModel::currentLanguageChanged);
    const int german = static_cast<int>(AppLanguage::german);
    shell.chooseLanguage(german);
    shell.chooseLanguage(99);
    EXPECT_EQ(shell.currentLanguage(), german);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(shell.languages().at(german), QStringLiteral("\U0001F1E9\U0001F1EA Deutsch"));
    EXPECT_EQ(qtTrId("step.sources"), QStringLiteral("Quellen"));
    EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), QStringLiteral("Cancel"))
        << "the toolkit's own texts are none of ours";
    QCoreApplication::removeTranslator(&translator);
}

} // namespace
} // namespace lumeo
