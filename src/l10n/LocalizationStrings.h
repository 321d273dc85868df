#pragma once

#include "l10n/AppLanguage.h"

#include <QString>
#include <QStringView>

#include <span>

namespace lumeo {

/// One text of the interface and the key that it is looked up by.
struct LocalizedText {
    QStringView key;
    QStringView text;
};

/// The texts of the interface, compiled into the program. Any thread may call.
struct LocalizationStrings {
    /// The supplementary texts: the same keys in every language.
    [[nodiscard]] static std::span<const LocalizedText> supplementary(AppLanguage language);

    /// The main texts: every key in English and Turkish, the most visible ones in the others.
    [[nodiscard]] static std::span<const LocalizedText> main(AppLanguage language);

    /// The text for a key: the language's supplementary or main one, else the English one, else the
    /// key itself. Case matters.
    [[nodiscard]] static QString text(const QString& key, AppLanguage language);
};

} // namespace lumeo
