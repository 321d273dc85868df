#pragma once

#include "l10n/LocalizationStrings.h"

#include <span>

namespace lumeo {

/// The two lists of one language, in the order of the source. A key occurs once in a list.
struct LanguageTables {
    std::span<const LocalizedText> supplementary;
    std::span<const LocalizedText> main;
};

namespace tables {

// Each is defined in the file of its name.
extern const LanguageTables english;
extern const LanguageTables turkish;
extern const LanguageTables spanish;
extern const LanguageTables french;
extern const LanguageTables german;
extern const LanguageTables italian;
extern const LanguageTables portuguese;
extern const LanguageTables russian;
extern const LanguageTables arabic;
extern const LanguageTables chineseSimplified;
extern const LanguageTables chineseTraditional;
extern const LanguageTables japanese;
extern const LanguageTables korean;
extern const LanguageTables hindi;

} // namespace tables
} // namespace lumeo
