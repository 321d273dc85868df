#include "l10n/LocalizationStrings.h"

#include "l10n/LanguageTables.h"
#include "l10n/PlatformWords.h"

#include <QHash>

#include <array>
#include <cstddef>

namespace lumeo {
namespace {

constexpr std::size_t languageCount = allCases<AppLanguage>().size();

constexpr std::array<const LanguageTables*, languageCount> allTables{
    &tables::english,
    &tables::turkish,
    &tables::spanish,
    &tables::french,
    &tables::german,
    &tables::italian,
    &tables::portuguese,
    &tables::russian,
    &tables::arabic,
    &tables::chineseSimplified,
    &tables::chineseTraditional,
    &tables::japanese,
    &tables::korean,
    &tables::hindi,
};

const LanguageTables& tablesOf(AppLanguage language) {
    return *allTables[static_cast<std::size_t>(language)];
}

using TextHash = QHash<QStringView, QString>;

TextHash hashOf(std::span<const LocalizedText> list, AppLanguage language) {
    TextHash hash;
    hash.reserve(static_cast<qsizetype>(list.size()));
    for (const auto& [key, text] : list) {
        hash.insert(key, withPlatformWords(text, language));
    }
    return hash;
}

struct LanguageHashes {
    TextHash supplementary;
    TextHash main;
};

const LanguageHashes& hashesOf(AppLanguage language) {
    static const auto all = [] {
        std::array<LanguageHashes, languageCount> built;
        for (std::size_t i = 0; i < languageCount; ++i) {
            const auto each = static_cast<AppLanguage>(i);
            built[i] = {hashOf(allTables[i]->supplementary, each), hashOf(allTables[i]->main, each)};
        }
        return built;
    }();
    return all[static_cast<std::size_t>(language)];
}

} // namespace

std::span<const LocalizedText> LocalizationStrings::supplementary(AppLanguage language) {
    return tablesOf(language).supplementary;
}

std::span<const LocalizedText> LocalizationStrings::main(AppLanguage language) {
    return tablesOf(language).main;
}

QString LocalizationStrings::text(const QString& key, AppLanguage language) {
    for (const AppLanguage candidate : {language, AppLanguage::english}) {
        const LanguageHashes& hashes = hashesOf(candidate);
        for (const TextHash* hash : {&hashes.supplementary, &hashes.main}) {
            if (const auto found = hash->constFind(key); found != hash->constEnd()) {
                return *found;
            }
        }
    }
    return key;
}

} // namespace lumeo
