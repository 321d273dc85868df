#pragma once

#include "model/EnumText.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace lumeo {

/// The languages of the interface, in the order of the language menu. Their coded texts are their language
/// codes, which also serve as locale identifiers.
enum class AppLanguage {
    english,
    turkish,
    spanish,
    french,
    german,
    italian,
    portuguese,
    russian,
    arabic,
    chineseSimplified,
    chineseTraditional,
    japanese,
    korean,
    hindi,
};

template<>
struct EnumTexts<AppLanguage> {
    static constexpr std::array texts{
        std::pair{AppLanguage::english, std::string_view("en")},
        std::pair{AppLanguage::turkish, std::string_view("tr")},
        std::pair{AppLanguage::spanish, std::string_view("es")},
        std::pair{AppLanguage::french, std::string_view("fr")},
        std::pair{AppLanguage::german, std::string_view("de")},
        std::pair{AppLanguage::italian, std::string_view("it")},
        std::pair{AppLanguage::portuguese, std::string_view("pt")},
        std::pair{AppLanguage::russian, std::string_view("ru")},
        std::pair{AppLanguage::arabic, std::string_view("ar")},
        std::pair{AppLanguage::chineseSimplified, std::string_view("zh-Hans")},
        std::pair{AppLanguage::chineseTraditional, std::string_view("zh-Hant")},
        std::pair{AppLanguage::japanese, std::string_view("ja")},
        std::pair{AppLanguage::korean, std::string_view("ko")},
        std::pair{AppLanguage::hindi, std::string_view("hi")},
    };
};

/// The code of a language ("de", "zh-Hans").
[[nodiscard]] QString languageCode(AppLanguage language);

/// The language with exactly this code. Absent for any other text.
[[nodiscard]] std::optional<AppLanguage> languageOfCode(const QString& code);

/// A language's own name for itself, which is never translated.
[[nodiscard]] QString displayName(AppLanguage language);

/// A country's flag as text: two regional-indicator symbols.
[[nodiscard]] QString flag(AppLanguage language);

/// The interface language for a user who prefers the given languages, best first, as BCP 47 tags ("de-AT").
/// Only the first one counts. English when it is not one of our languages.
[[nodiscard]] AppLanguage languageFor(const QStringList& preferred);

/// The user's preferred languages according to the system's settings, best first. A Chinese tag always has
/// its script, which the system often implies by the country ("zh-TW").
[[nodiscard]] QStringList systemPreferredLanguages();

/// The given tags. A Chinese tag without a script gets the usual script of its country.
[[nodiscard]] QStringList withChineseScripts(QStringList tags);

} // namespace lumeo
