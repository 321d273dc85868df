#include "l10n/LocalizationStrings.h"

#include <gtest/gtest.h>

#include <QMap>

#include <array>
#include <span>
#include <string>
#include <tuple>

namespace lumeo {
namespace {

using Texts = QMap<QString, QString>;

Texts mapOf(std::span<const LocalizedText> list) {
    Texts texts;
    for (const auto& [key, text] : list) {
        texts.insert(key.toString(), text.toString());
    }
    return texts;
}

/// The English texts of both tables.
Texts englishTexts() {
    Texts texts = mapOf(LocalizationStrings::main(AppLanguage::english));
    texts.insert(mapOf(LocalizationStrings::supplementary(AppLanguage::english)));
    return texts;
}

QString look(const char* key, AppLanguage language) {
    return LocalizationStrings::text(QString::fromLatin1(key), language);
}

/// Runs for every list of every language.
class EachList : public testing::TestWithParam<std::tuple<AppLanguage, bool>> {
protected:
    [[nodiscard]] static AppLanguage language() { return std::get<0>(GetParam()); }
    [[nodiscard]] static std::span<const LocalizedText> list() {
        return std::get<1>(GetParam()) ? LocalizationStrings::supplementary(language())
                                       : LocalizationStrings::main(language());
    }
};

TEST_P(EachList, HasEachKeyOnceAndATextForIt) {
    EXPECT_EQ(std::size_t(mapOf(list()).size()), list().size());
    for (const auto& [key, text] : list()) {
        EXPECT_FALSE(key.isEmpty());
        EXPECT_FALSE(text.trimmed().isEmpty()) << key.toUtf8().constData();
        EXPECT_EQ(text.trimmed(), text) << key.toUtf8().constData();
    }
}

// What a translation must keep: names, bullets and line feeds, the braces of the tags, and the dots on a
// button that asks something before it acts.
TEST_P(EachList, KeepsWhatNoLanguageTranslates) {
    static const std::array fixed{
        "LUMEO.",
        "Mac",
        "Finder",
        "SHA-256",
        "_Unknown Date/",
        "RAW",
        "CSV",
        "EXIF",
        "\n\n",
        "\n",
        "• ",
        "(",
        "{YYYY}, {YY}, {MM}, {DD}, {Month}, {MonthShort}, {CameraMake}, {CameraModel}, {MediaType}"};
    const Texts english = englishTexts();
    for (const auto& [key, text] : list()) {
        const QString original = english.value(key.toString());
        for (const char* part : fixed) {
            const QString searched = QString::fromUtf8(part);
            const QString translated = text.toString().replace(u'（', u'(');
            EXPECT_EQ(translated.count(searched), original.count(searched))
                << key.toUtf8().constData() << ": " << part;
        }
        EXPECT_EQ(text.endsWith(u"…") || text.endsWith(u"..."), original.endsWith(u"..."))
            << key.toUtf8().constData();
    }
}

std::string listName(const testing::TestParamInfo<EachList::ParamType>& list) {
    const QString code = languageCode(std::get<0>(list.param)).remove(u'-');
    return code.toStdString() + (std::get<1>(list.param) ? "_supplementary" : "_main");
}

INSTANTIATE_TEST_SUITE_P(LocalizationStrings, EachList,
                         testing::Combine(testing::ValuesIn(allCases<AppLanguage>()), testing::Bool()),
                         listName);

TEST(LocalizationStrings, EveryLanguageHasTheKeysThatItPromises) {
    const auto supplementaryKeys = mapOf(LocalizationStrings::supplementary(AppLanguage::english)).keys();
    const auto allKeys = mapOf(LocalizationStrings::main(AppLanguage::english)).keys();
    const auto fewKeys = mapOf(LocalizationStrings::main(AppLanguage::spanish)).keys();
    EXPECT_EQ(supplementaryKeys.size(), 21);
    EXPECT_EQ(allKeys.size(), 186);
    EXPECT_EQ(fewKeys.size(), 17);
    for (const AppLanguage language : allCases<AppLanguage>()) {
        SCOPED_TRACE(rawValue(language));
        EXPECT_EQ(mapOf(LocalizationStrings::supplementary(language)).keys(), supplementaryKeys);
        auto expected = fewKeys;
        if (language == AppLanguage::english || language == AppLanguage::turkish) {
            expected = allKeys;
        } else if (language == AppLanguage::portuguese) {
            expected.prepend(QStringLiteral("brand.slogan"));
        }
        EXPECT_EQ(mapOf(LocalizationStrings::main(language)).keys(), expected);
    }
}

TEST(LocalizationStrings, TheTwoTablesSayTheSameUnderTheKeysThatTheyShare) {
    for (const AppLanguage language : {AppLanguage::english, AppLanguage::turkish, AppLanguage::portuguese}) {
        const Texts main = mapOf(LocalizationStrings::main(language));
        int shared = 0;
        for (const auto& [key, text] : LocalizationStrings::supplementary(language)) {
            if (const auto found = main.constFind(key.toString()); found != main.constEnd()) {
                EXPECT_EQ(*found, text.toString());
                ++shared;
            }
        }
        EXPECT_EQ(shared, language == AppLanguage::portuguese ? 1 : 5);
    }
}

TEST(LocalizationStrings, NoShownTextNamesAnotherPlatform) {
    for (const AppLanguage language : allCases<AppLanguage>()) {
        for (const QString& key : englishTexts().keys()) {
            const QString shown = LocalizationStrings::text(key, language);
            EXPECT_FALSE(shown.contains(u"Mac") || shown.contains(u"Finder")) << shown.toStdString();
        }
    }
    EXPECT_EQ(look("privacy.subtitle", AppLanguage::english),
              QStringLiteral("Your media stays on your computer."));
    EXPECT_EQ(look("report.openInFinder", AppLanguage::german), QStringLiteral("Im Dateimanager öffnen"));
}

TEST(LocalizationStrings, FallsBackToEnglishAndThenToTheKey) {
    EXPECT_EQ(look("step.sources", AppLanguage::spanish), QStringLiteral("Orígenes"));
    EXPECT_EQ(look("last.title", AppLanguage::spanish), QStringLiteral("Última operación completada"));
    EXPECT_EQ(look("scan.title", AppLanguage::spanish), QStringLiteral("Scanning Your Media"));
    EXPECT_EQ(look("common.done", AppLanguage::hindi), QStringLiteral("हो गया"));
    EXPECT_EQ(look("foo.bar", AppLanguage::arabic), QStringLiteral("foo.bar"));
    EXPECT_EQ(look("Step.Sources", AppLanguage::english), QStringLiteral("Step.Sources"));
}

} // namespace
} // namespace lumeo
