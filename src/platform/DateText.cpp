#include "platform/DateText.h"

#include "platform/CivilTime.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <memory>

namespace lumeo {
namespace {

using std::chrono::microseconds;
using std::chrono::seconds;

constexpr std::string_view isoForm = "yyyy-MM-ddTHH:mm:ss";

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The field that a letter of a form means. Null for characters that mean themselves.
int* fieldOf(WallTime& time, char letter) {
    switch (letter) {
    case 'y':
        return &time.year;
    case 'M':
        return &time.month;
    case 'd':
        return &time.day;
    case 'H':
        return &time.hour;
    case 'm':
        return &time.minute;
    case 's':
        return &time.second;
    default:
        return nullptr;
    }
}

/// Reads `text` digit by digit according to `form`, without checking ranges.
std::optional<WallTime> matchForm(std::string_view text, std::string_view form) {
    if (text.size() != form.size()) {
        return std::nullopt;
    }
    WallTime time;
    for (std::size_t i = 0; i < form.size(); ++i) {
        int* const field = fieldOf(time, form[i]);
        if (field != nullptr ? !isDigit(text[i]) : text[i] != form[i]) {
            return std::nullopt;
        }
        if (field != nullptr) {
            *field = *field * 10 + (text[i] - '0');
        }
    }
    return time;
}

std::optional<WallTime> parseWallTime(std::string_view text, std::string_view form) {
    const std::optional<WallTime> time = matchForm(text, form);
    return time && isRealTime(*time) ? time : std::nullopt;
}

std::optional<seconds> parseOffset(std::string_view text) {
    if (text == "Z") {
        return seconds(0);
    }
    if (text.empty() || (text.front() != '+' && text.front() != '-')) {
        return std::nullopt;
    }
    std::optional<WallTime> ahead = matchForm(text.substr(1), "HH:mm");
    if (!ahead) {
        ahead = matchForm(text.substr(1), "HHmm");
    }
    if (!ahead || ahead->hour > 23 || ahead->minute > 59) {
        return std::nullopt;
    }
    const seconds amount(ahead->hour * 3600 + ahead->minute * 60);
    return text.front() == '-' ? -amount : amount;
}

/// Removes a fraction such as ".123" from the front of `text`, if there is one. Absent when it is malformed.
std::optional<microseconds> takeFraction(std::string_view& text) {
    constexpr std::size_t mostDigits = 9;
    constexpr std::size_t digitsKept = 6;
    if (text.empty() || text.front() != '.') {
        return microseconds(0);
    }
    std::size_t end = 1;
    while (end < text.size() && isDigit(text[end])) {
        ++end;
    }
    const std::string_view digits = text.substr(1, end - 1);
    if (digits.empty() || digits.size() > mostDigits) {
        return std::nullopt;
    }
    int value = 0;
    for (std::size_t i = 0; i < digitsKept; ++i) {
        value = value * 10 + (i < digits.size() ? digits[i] - '0' : 0);
    }
    text.remove_prefix(end);
    return microseconds(value);
}

/// Removes a number of one or two digits, and the blanks before it, from the front of `text`.
bool takeNumber(std::string_view& text, int& number) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    std::size_t count = 0;
    for (; count < 2 && count < text.size() && isDigit(text[count]); ++count) {
        number = number * 10 + (text[count] - '0');
    }
    text.remove_prefix(count);
    return count > 0;
}

bool takeCharacter(std::string_view& text, char character) {
    const bool isThere = text.starts_with(character);
    text.remove_prefix(isThere ? 1 : 0);
    return isThere;
}

/// Removes the day from the front of a photo's date.
bool takeDay(std::string_view& text, WallTime& time) {
    constexpr std::string_view separators = ":-./";
    const std::optional<WallTime> year = matchForm(text.substr(0, 4), "yyyy");
    if (!year || text.size() == 4 || separators.find(text[4]) == std::string_view::npos) {
        return false;
    }
    time.year = year->year;
    const char separator = text[4];
    text.remove_prefix(5);
    return takeNumber(text, time.month) && takeCharacter(text, separator) && takeNumber(text, time.day);
}

/// Removes hour, minute and, if present, second from the front of `text`.
bool takeTime(std::string_view& text, WallTime& time) {
    return takeNumber(text, time.hour) && takeCharacter(text, ':') && takeNumber(text, time.minute) &&
           (!takeCharacter(text, ':') || takeNumber(text, time.second));
}

std::optional<Instant> instantBehind(const WallTime& time, seconds offset) {
    const std::optional<Instant> instant = instantInUtc(time);
    return instant ? std::optional<Instant>(*instant - offset) : std::nullopt;
}

} // namespace

std::optional<Instant> DateText::parsePhoto(std::string_view text) {
    WallTime time;
    if (!takeDay(text, time)) {
        return std::nullopt;
    }
    if (text.empty()) {
        time.hour = 12;
        return photoClock(time);
    }
    if (!(takeCharacter(text, ' ') || takeCharacter(text, 'T')) || !takeTime(text, time)) {
        return std::nullopt;
    }
    const std::optional<microseconds> fraction = takeFraction(text);
    const std::optional<seconds> offset = parseOffset(text);
    if (!fraction || !isRealTime(time) || (!text.empty() && !offset)) {
        return std::nullopt;
    }
    const std::optional<Instant> instant = offset ? instantBehind(time, *offset) : photoClock(time);
    return instant ? std::optional<Instant>(*instant + *fraction) : std::nullopt;
}

std::optional<Instant> DateText::photoClock(const WallTime& time) {
    static const std::unique_ptr<const icu::TimeZone> zone(icu::TimeZone::createDefault());
    return isRealTime(time) ? instantInZone(time, *zone) : std::nullopt;
}

std::optional<Instant> DateText::parseIso8601(std::string_view text) {
    const std::optional<WallTime> time = parseWallTime(text.substr(0, isoForm.size()), isoForm);
    if (!time) {
        return std::nullopt;
    }
    std::string_view rest = text.substr(isoForm.size());
    const std::optional<microseconds> fraction = takeFraction(rest);
    const std::optional<seconds> offset = parseOffset(rest);
    if (!fraction || !offset) {
        return std::nullopt;
    }
    const std::optional<Instant> instant = instantBehind(*time, *offset);
    return instant ? std::optional<Instant>(*instant + *fraction) : std::nullopt;
}

std::optional<Instant> DateText::parseZoned(std::string_view text) {
    const std::optional<WallTime> time = parseWallTime(text.substr(0, isoForm.size()), isoForm);
    if (!time) {
        return std::nullopt;
    }
    const std::string_view zone = text.substr(isoForm.size());
    const std::optional<seconds> offset = zone == "GMT" ? seconds(0) : parseOffset(zone);
    return offset ? instantBehind(*time, *offset) : std::nullopt;
}

std::optional<Instant> DateText::parsePlainUtc(std::string_view text) {
    const std::optional<WallTime> time = parseWallTime(text, "yyyy-MM-dd HH:mm:ss");
    return time ? instantInUtc(*time) : std::nullopt;
}

std::string DateText::iso8601Utc(Instant instant) {
    const WallTime time = wallTimeInUtc(instant);
    std::array<char, 40> text{};
    const int length = std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%02dZ", time.year,
                                     time.month, time.day, time.hour, time.minute, time.second);
    return {text.data(), static_cast<std::size_t>(length)};
}

} // namespace lumeo
