#include "dates/FilenameDateParser.h"

#include "platform/FilePath.h"
#include "platform/LocalCalendar.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <memory>

#include <unicode/regex.h>

namespace lumeo {
namespace {

constexpr std::size_t dateAndTimeCount = 4;
constexpr std::size_t patternCount = dateAndTimeCount + 1;

/// In the order in which they are tried. The last pattern finds a date without a time. "(?i)" beside "[\D]"
/// takes over 10 ms each to compile.
constexpr std::array<const char16_t*, patternCount> patternTexts{
    // 2021-03-14_15-30-45, PXL 2021.03.14T15:30:45
    uR"((?:^|[\D])(\d{4})[-_.](\d{2})[-_.](\d{2})[\sTt_](\d{2})[-_.:](\d{2})[-_.:](\d{2})(?:[\D]|$))",
    // IMG_20210314_153045, VID-20210314-153045
    uR"((?:^|[\D])(\d{4})(\d{2})(\d{2})[_\s-](\d{2})(\d{2})(\d{2})(?:[\D]|$))",
    // Screenshot 2021-03-14 at 15.30.45
    uR"((?i)Screenshot\s+(\d{4})[-_.](\d{2})[-_.](\d{2})\s+(?:at\s+)?(\d{2})[-_.:](\d{2})[-_.:](\d{2}))",
    // WhatsApp Image 2021-03-14 at 15.30.45
    uR"((?i)WhatsApp\s+(?:Image|Video)\s+(\d{4})[-_.](\d{2})[-_.](\d{2})\s+)"
    uR"((?:at\s+)?(\d{2})[-_.:](\d{2})[-_.:](\d{2}))",
    // trip_2021.03.14_beach
    uR"((?:^|[\D])(\d{4})[-_.](\d{2})[-_.](\d{2})(?:[\D]|$))",
};

using Patterns = std::array<std::unique_ptr<const icu::RegexPattern>, patternCount>;

/// The patterns are compiled once for the process. They are never destroyed, because threads that end late
/// still use them.
const Patterns& patterns() {
    static const Patterns& compiled = *new Patterns([] {
        Patterns result;
        for (std::size_t i = 0; i < patternCount; ++i) {
            UErrorCode status = U_ZERO_ERROR;
            UParseError where;
            result[i].reset(icu::RegexPattern::compile(patternTexts[i], where, status));
            assert(U_SUCCESS(status));
        }
        return result;
    }());
    return compiled;
}

/// Searches one name at a time. Each thread has its own, because matchers cannot be shared.
class NameSearch {
public:
    NameSearch() {
        for (std::size_t i = 0; i < patternCount; ++i) {
            UErrorCode status = U_ZERO_ERROR;
            matchers_[i].reset(patterns()[i]->matcher(status));
        }
    }

    void setName(std::string_view name) {
        // Bytes that are not UTF-8 become U+FFFD. It is not a digit, so it may stand beside a date.
        name_ =
            icu::UnicodeString::fromUTF8(icu::StringPiece(name.data(), static_cast<int32_t>(name.size())));
    }

    /// The leftmost match of one pattern, ready for number(). Null when there is none.
    icu::RegexMatcher* find(std::size_t pattern) {
        icu::RegexMatcher& matcher = *matchers_[pattern];
        matcher.reset(name_);
        UErrorCode status = U_ZERO_ERROR;
        return matcher.find(status) && U_SUCCESS(status) ? &matcher : nullptr;
    }

    /// The number in a capture group of a match. Digits of other scripts match a pattern but give no number.
    [[nodiscard]] std::optional<int> number(const icu::RegexMatcher& match, int group) const {
        UErrorCode status = U_ZERO_ERROR;
        const int32_t end = match.end(group, status);
        int value = 0;
        for (int32_t i = match.start(group, status); i < end; ++i) {
            const char16_t digit = name_[i];
            if (digit < u'0' || digit > u'9') {
                return std::nullopt;
            }
            value = value * 10 + (digit - u'0');
        }
        return value;
    }

private:
    icu::UnicodeString name_;
    std::array<std::unique_ptr<icu::RegexMatcher>, patternCount> matchers_;
};

constexpr int noon = 12;

bool isPlausible(const WallTime& time) {
    const auto within = [](int value, int first, int last) { return value >= first && value <= last; };
    return within(time.year, 1990, 2040) && within(time.month, 1, 12) && within(time.day, 1, 31) &&
           within(time.hour, 0, 23) && within(time.minute, 0, 59) && within(time.second, 0, 59);
}

/// The first match of one pattern as an instant. Absent when there is no match or it gives no date.
std::optional<Instant> dateByPattern(NameSearch& search, std::size_t pattern) {
    const icu::RegexMatcher* const match = search.find(pattern);
    if (match == nullptr) {
        return std::nullopt;
    }
    const std::optional<int> year = search.number(*match, 1);
    const std::optional<int> month = search.number(*match, 2);
    const std::optional<int> day = search.number(*match, 3);
    if (!year || !month || !day) {
        return std::nullopt;
    }
    WallTime time{.year = *year, .month = *month, .day = *day, .hour = noon};
    if (pattern < dateAndTimeCount) {
        time.hour = search.number(*match, 4).value_or(noon);
        time.minute = search.number(*match, 5).value_or(0);
        time.second = search.number(*match, 6).value_or(0);
    }
    return isPlausible(time) ? LocalCalendar::compose(time) : std::nullopt;
}

/// Removes `count` ASCII digits from the front of `text`. False when there are fewer.
bool takeDigits(std::string_view& text, std::size_t count) {
    const std::string_view digits = text.substr(0, count);
    text.remove_prefix(digits.size());
    return digits.size() == count &&
           std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
}

void skipSeparator(std::string_view& text) {
    if (!text.empty() && (text.front() == '-' || text.front() == '_' || text.front() == '.')) {
        text.remove_prefix(1);
    }
}

/// Whether the digits of a plausible year, a month and a day stand together anywhere. No pattern gives a date
/// without them. This check decides for most names and takes a hundredth of the time of a search.
bool mayHoldDate(std::string_view name) {
    for (; name.size() >= 8; name.remove_prefix(1)) {
        if (!name.starts_with("19") && !name.starts_with("20")) {
            continue;
        }
        std::string_view rest = name;
        const bool year = takeDigits(rest, 4);
        skipSeparator(rest);
        const bool month = takeDigits(rest, 2);
        skipSeparator(rest);
        if (year && month && takeDigits(rest, 2)) {
            return true;
        }
    }
    return false;
}

} // namespace

std::optional<Instant> FilenameDateParser::parseDate(std::string_view fileName) {
    const std::string_view name = deletingPathExtension(fileName);
    if (!mayHoldDate(name)) {
        return std::nullopt;
    }
    thread_local NameSearch search;
    search.setName(name);
    for (std::size_t pattern = 0; pattern < patternCount; ++pattern) {
        if (const std::optional<Instant> date = dateByPattern(search, pattern)) {
            return date;
        }
    }
    return std::nullopt;
}

} // namespace lumeo
