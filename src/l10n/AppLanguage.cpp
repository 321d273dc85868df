#include "l10n/AppLanguage.h"

#include <QLocale>

#include <array>
#include <cstddef>

namespace lumeo {
namespace {

struct LanguageFace {
    const char16_t* displayName;
    const char16_t* flag;
};

constexpr std::array<LanguageFace, allCases<AppLanguage>().size()> faces{{
    {u"English", u"🇬🇧"},
    {u"Türkçe", u"🇹🇷"},
    {u"Español", u"🇪🇸"},
    {u"Français", u"🇫🇷"},
    {u"Deutsch", u"🇩🇪"},
    {u"Italiano", u"🇮🇹"},
    {u"Português", u"🇵🇹"},
    {u"Русский", u"🇷🇺"},
    {u"العربية", u"🇸🇦"},
    {u"简体中文", u"🇨🇳"},
    {u"繁體中文", u"🇹🇼"},
    {u"日本語", u"🇯🇵"},
    {u"한국어", u"🇰🇷"},
    {u"हिन्दी", u"🇮🇳"},
}};

const LanguageFace& faceOf(AppLanguage language) {
    return faces[static_cast<std::size_t>(language)];
}

} // namespace

QString languageCode(AppLanguage language) {
    const std::string_view code = rawValue(language);
    return QString::fromLatin1(code.data(), static_cast<qsizetype>(code.size()));
}

std::optional<AppLanguage> languageOfCode(const QString& code) {
    return fromRawValue<AppLanguage>(code.toStdString());
}

QString displayName(AppLanguage language) {
    return QString::fromUtf16(faceOf(language).displayName);
}

QString flag(AppLanguage language) {
    return QString::fromUtf16(faceOf(language).flag);
}

AppLanguage languageFor(const QStringList& preferred) {
    if (preferred.isEmpty()) {
        return AppLanguage::english;
    }
    for (const AppLanguage language : allCases<AppLanguage>()) {
        // Compared with a dash, because "kok" is not "ko".
        if ((preferred.first() + u'-').startsWith(languageCode(language) + u'-', Qt::CaseInsensitive)) {
            return language;
        }
    }
    return AppLanguage::english;
}

QStringList systemPreferredLanguages() {
    return withChineseScripts(QLocale::system().uiLanguages());
}

QStringList withChineseScripts(QStringList tags) {
    for (QString& tag : tags) {
        const QLocale locale(tag);
        if (locale.language() != QLocale::Chinese || tag.contains(u"-Han", Qt::CaseInsensitive)) {
            continue;
        }
        const qsizetype dash = tag.indexOf(u'-');
        const QString country = dash < 0 ? QString() : tag.mid(dash);
        tag = QStringLiteral("zh-") + QLocale::scriptToCode(locale.script()) + country;
    }
    return tags;
}

} // namespace lumeo
