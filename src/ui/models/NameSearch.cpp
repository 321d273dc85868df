#include "ui/models/NameSearch.h"

#include "platform/AsciiCase.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace lumeo {
namespace {

QString folded(const QString& text) {
    // These letters are replaced before folding, because folding adds a separate dot to the capital dotted
    // letter.
    QString one = text.normalized(QString::NormalizationForm_C);
    one.replace(QChar(0x0130), QLatin1Char('i')).replace(QChar(0x0131), QLatin1Char('i'));
    return one.toCaseFolded();
}

/// Reads eight bytes at a time, because most names of a catalogue are examined and most are ASCII.
bool isAscii(std::string_view text) {
    constexpr std::uint64_t highBits = 0x8080808080808080U;
    std::uint64_t word = 0;
    while (text.size() >= sizeof word) {
        std::memcpy(&word, text.data(), sizeof word);
        if ((word & highBits) != 0) {
            return false;
        }
        text.remove_prefix(sizeof word);
    }
    return std::ranges::none_of(text, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

/// `text` is in lower case already.
bool containsIgnoringAsciiCase(std::string_view name, std::string_view text) {
    return std::search(name.begin(), name.end(), text.begin(), text.end(), [](char inName, char inText) {
               return asciiLowerCased(inName) == inText;
           }) != name.end();
}

} // namespace

NameSearch::NameSearch(const QString& text) : folded_(folded(text)) {
    const QByteArray bytes = folded_.toUtf8();
    if (isAscii({bytes.data(), static_cast<std::size_t>(bytes.size())})) {
        ascii_ = bytes.toStdString();
    }
}

bool NameSearch::finds(std::string_view name) const {
    if (folded_.isEmpty()) {
        return true;
    }
    if (isAscii(name)) {
        return !ascii_.empty() && containsIgnoringAsciiCase(name, ascii_);
    }
    return folded(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()))).contains(folded_);
}

} // namespace lumeo
