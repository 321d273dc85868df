#pragma once

#include "l10n/PlatformWords.h"
#include "platform/FilePath.h"
#include "platform/TextFormat.h"

#include <QString>

#include <cstdint>
#include <string>
#include <string_view>

namespace lumeo {

/// Texts and figures of the core as the screens show them, in the user's locale. Bytes that are not UTF-8
/// show as U+FFFD. Any thread may call.
inline QString shownText(std::string_view bytes) {
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

inline QString shownNumber(std::int64_t value) {
    return shownText(TextFormat::number(value));
}

inline QString shownByteCount(std::int64_t bytes) {
    return shownText(TextFormat::byteCount(bytes));
}

/// A fixed English text of the core as the window shows it, in the words of this platform.
inline QString shownEnglish(std::string_view text) {
    return withPlatformWords(shownText(text), AppLanguage::english);
}

/// Shown in place of a figure that is not known yet.
inline constexpr QChar notKnown(0x2013);

inline QString shownPath(const FilePath& path) {
    return shownText(path.displayText());
}

/// Seconds with one decimal, such as "12.4s".
inline QString shownSeconds(double seconds) {
    return QString::number(seconds, 'f', 1) + QLatin1Char('s');
}

} // namespace lumeo
