#pragma once

#include "l10n/AppLanguage.h"

#include <QString>
#include <QStringView>

#include <span>

namespace lumeo {

/// One text of the interface and its key.
struct LocalizedText {
    QStringView key;
    QStringView text;
};

/// The texts of the interface, compiled into the program. Any thread may call.
struct LocalizationStrings {
    /// The supplementary texts. Every language has the same keys.
    [[nodiscard]] static std::span<const LocalizedText> supplementary(AppLanguage language);

    /// The main texts. English and Turkish have every key; the other languages have the most visible ones.
    [[nodiscard]] static std::span<const LocalizedText> main(AppLanguage language);

    /// The text for a key: the language's supplementary or main text, else the English one, else the key
    /// itself. Case matters. Unlike the lists above, it uses the words of this platform.
    [[nodiscard]] static QString text(const QString& key, AppLanguage language);
};

} // namespace lumeo
