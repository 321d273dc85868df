#include "l10n/LocalizationManager.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <QSettings>

namespace lumeo {
namespace {

AppLanguage languageForFirst(const char* tag) {
    return languageFor({QString::fromLatin1(tag), QStringLiteral("tr")});
}

TEST(AppLanguage, IsChosenByTheFirstPreferredLanguageAlone) {
    EXPECT_EQ(languageForFirst("de-AT"), AppLanguage::german);
    EXPECT_EQ(languageForFirst("pt-br"), AppLanguage::portuguese);
    EXPECT_EQ(languageForFirst("zh-hant-tw"), AppLanguage::chineseTraditional);
    EXPECT_EQ(languageForFirst("zh-Hans"), AppLanguage::chineseSimplified);
    EXPECT_EQ(languageForFirst("sv-SE"), AppLanguage::english);
    EXPECT_EQ(languageForFirst("kok-IN"), AppLanguage::english);
    EXPECT_EQ(languageForFirst("C"), AppLanguage::english);
    EXPECT_EQ(languageFor({}), AppLanguage::english);
}

TEST(AppLanguage, WritesTheScriptIntoTheSystemsChinese) {
    const QStringList tags{QStringLiteral("zh-TW"), QStringLiteral("zh-CN"), QStringLiteral("zh"),
                           QStringLiteral("zh-Hant-HK"), QStringLiteral("de-CH")};
    const QStringList written{QStringLiteral("zh-Hant-TW"), QStringLiteral("zh-Hans-CN"),
                              QStringLiteral("zh-Hans"), QStringLiteral("zh-Hant-HK"),
                              QStringLiteral("de-CH")};
    EXPECT_EQ(withChineseScripts(tags), written);
}

TEST(AppLanguage, NamesItselfAndItsFlag) {
    QStringList menu;
    for (const AppLanguage language : allCases<AppLanguage>()) {
        menu.append(flag(language) + u' ' + displayName(language));
        EXPECT_EQ(languageOfCode(languageCode(language)), language);
    }
    EXPECT_EQ(menu.first(), QStringLiteral("🇬🇧 English"));
    EXPECT_EQ(menu[8], QStringLiteral("🇸🇦 العربية"));
    EXPECT_EQ(menu.last(), QStringLiteral("🇮🇳 हिन्दी"));
    EXPECT_EQ(menu.removeDuplicates(), 0);
}

/// Each test has its own settings file, which is opened again for each start of the program.
class LocalizationManagerTest : public testing::Test {
protected:
    [[nodiscard]] QString settingsFile() const {
        return QString::fromStdString((folder_ / "settings.ini").bytes());
    }

    const QString key = QStringLiteral("appLanguage");
    const QStringList german{QStringLiteral("de-AT")};

private:
    TempFolder folder_;
};

TEST_F(LocalizationManagerTest, KeepsAChosenLanguageFromOneLifeToTheNextButNotTheSystems) {
    {
        QSettings settings(settingsFile(), QSettings::IniFormat);
        LocalizationManager manager(settings, german);
        EXPECT_EQ(manager.currentLanguage(), AppLanguage::german);
        EXPECT_FALSE(settings.contains(key));
        manager.setLanguage(AppLanguage::chineseTraditional);
    }
    QSettings settings(settingsFile(), QSettings::IniFormat);
    EXPECT_EQ(settings.value(key).toString(), QStringLiteral("zh-Hant"));
    const LocalizationManager manager(settings, german);
    EXPECT_EQ(manager.currentLanguage(), AppLanguage::chineseTraditional);
    EXPECT_EQ(manager.localized(QStringLiteral("step.report")), QStringLiteral("報告"));
}

TEST_F(LocalizationManagerTest, IgnoresAStoredCodeThatIsNoneOfOurs) {
    for (const QVariant& code : {QVariant(QStringLiteral("xx")), QVariant(QStringLiteral("TR")), QVariant(3),
                                 QVariant(QStringList{QStringLiteral("tr"), QStringLiteral("fr")})}) {
        QSettings settings(settingsFile(), QSettings::IniFormat);
        settings.setValue(key, code);
        EXPECT_EQ(LocalizationManager(settings, german).currentLanguage(), AppLanguage::german);
        EXPECT_EQ(settings.value(key), code);
    }
}

TEST_F(LocalizationManagerTest, AnnouncesAChangeAndStoresEvenTheLanguageThatItSpeaksAlready) {
    QSettings settings(settingsFile(), QSettings::IniFormat);
    LocalizationManager manager(settings, german);
    QStringList announced;
    QObject::connect(&manager, &LocalizationManager::currentLanguageChanged, &manager,
                     [&] { announced.append(manager.localized(QStringLiteral("common.done"))); });

    manager.setLanguage(AppLanguage::german);
    EXPECT_TRUE(announced.isEmpty());
    EXPECT_EQ(settings.value(key).toString(), QStringLiteral("de"));

    manager.setProperty("currentLanguage", QVariant::fromValue(AppLanguage::turkish));
    EXPECT_EQ(announced, QStringList{QStringLiteral("Bitti")});
    EXPECT_EQ(settings.value(key).toString(), QStringLiteral("tr"));
}

} // namespace
} // namespace lumeo
