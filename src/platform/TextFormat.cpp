#include "platform/TextFormat.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string_view>

#include <unicode/datefmt.h>
#include <unicode/locid.h>
#include <unicode/measfmt.h>
#include <unicode/measunit.h>
#include <unicode/measure.h>
#include <unicode/numberformatter.h>
#include <unicode/timezone.h>

namespace lumeo {
namespace {

/// The locale's name for one category as the environment gives it, unchanged.
std::string_view environmentLocale(const char* category) {
    for (const char* variable : {"LC_ALL", category, "LANG"}) {
        const char* const value = std::getenv(variable);
        if (value != nullptr && *value != '\0') {
            return value;
        }
    }
    return {};
}

icu::Locale localeNamed(std::string_view name) {
    const std::string_view base = name.substr(0, name.find_first_of(".@"));
    if (base == "C" || base == "POSIX") {
        return icu::Locale::getUS();
    }
    const icu::Locale locale = icu::Locale::createCanonical(std::string(name).c_str());
    // The formatters would crash on a name that stands for no language.
    return *locale.getISO3Language() != '\0' ? locale : icu::Locale::getUS();
}

std::string utf8(const icu::UnicodeString& text) {
    std::string result;
    return text.toUTF8String(result);
}

icu::DateFormat::EStyle libraryStyle(DateStyle style) {
    switch (style) {
    case DateStyle::shortStyle:
        return icu::DateFormat::kShort;
    case DateStyle::mediumStyle:
        return icu::DateFormat::kMedium;
    case DateStyle::none:
        break;
    }
    return icu::DateFormat::kNone;
}

std::unique_ptr<icu::DateFormat> makeDateFormat(DateStyle dateStyle, DateStyle timeStyle,
                                                const icu::Locale& locale) {
    return std::unique_ptr<icu::DateFormat>(
        icu::DateFormat::createDateTimeInstance(libraryStyle(dateStyle), libraryStyle(timeStyle), locale));
}

std::string formatted(const icu::DateFormat& format, Instant instant) {
    const auto milliseconds = std::chrono::floor<std::chrono::milliseconds>(instant).time_since_epoch();
    icu::UnicodeString text;
    return utf8(format.format(static_cast<UDate>(milliseconds.count()), text));
}

/// The date formatters of one thread. Each is made when it is first needed.
class DateFormats {
public:
    /// Absent when both styles are `none`.
    const icu::DateFormat* get(DateStyle dateStyle, DateStyle timeStyle) {
        if (dateStyle == DateStyle::none && timeStyle == DateStyle::none) {
            return nullptr;
        }
        follow(environmentLocale("LC_TIME"));
        auto& format = formats_[static_cast<std::size_t>(dateStyle)][static_cast<std::size_t>(timeStyle)];
        if (!format) {
            format = makeDateFormat(dateStyle, timeStyle, localeNamed(localeName_));
        }
        return format.get();
    }

private:
    /// Drops the formatters when the user's locale or zone has changed since they were made.
    void follow(std::string_view localeName) {
        std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::createDefault());
        if (zone_ && *zone_ == *zone && localeName_ == localeName) {
            return;
        }
        formats_ = {};
        zone_ = std::move(zone);
        localeName_ = localeName;
    }

    static constexpr std::size_t styles = 3;
    std::array<std::array<std::unique_ptr<icu::DateFormat>, styles>, styles> formats_;
    std::unique_ptr<icu::TimeZone> zone_;
    std::string localeName_;
};

using LibraryUnit = icu::MeasureUnit (*)();

struct ByteUnit {
    std::uint64_t bytes;
    std::uint64_t stepsPerUnit; ///< 10 for one decimal, 100 for two
    LibraryUnit unit;
};

/// In rising order. The library has no unit above the petabyte, and 64 bits of bytes are only 9,223
/// petabytes.
constexpr std::array byteUnits{
    ByteUnit{1, 1, icu::MeasureUnit::getByte},
    ByteUnit{1'000, 1, icu::MeasureUnit::getKilobyte},
    ByteUnit{1'000'000, 10, icu::MeasureUnit::getMegabyte},
    ByteUnit{1'000'000'000, 100, icu::MeasureUnit::getGigabyte},
    ByteUnit{1'000'000'000'000, 100, icu::MeasureUnit::getTerabyte},
    ByteUnit{1'000'000'000'000'000, 100, icu::MeasureUnit::getPetabyte},
};
constexpr std::size_t kilobyteIndex = 1;

/// The number formatters of one thread.
class NumberFormats {
public:
    /// The formatters for the user's current locale.
    NumberFormats& current() {
        const std::string_view name = environmentLocale("LC_NUMERIC");
        if (!localeName_ || *localeName_ != name) {
            localeName_ = name;
            make(localeNamed(name));
        }
        return *this;
    }

    [[nodiscard]] bool isEnglish() const { return isEnglish_; }

    [[nodiscard]] std::string number(std::int64_t value) const {
        UErrorCode status = U_ZERO_ERROR;
        return utf8(number_.formatInt(value, status).toString(status));
    }

    /// `amount` of the unit at `unitIndex`. Its symbol has a capital K, as is usual for file sizes.
    [[nodiscard]] std::string quantity(double amount, std::size_t unitIndex) const {
        UErrorCode status = U_ZERO_ERROR;
        icu::UnicodeString text = quantities_[unitIndex].formatDouble(amount, status).toString(status);
        return utf8(text.findAndReplace(u"kB", u"KB"));
    }

    /// Two units, the larger one first. A unit that is zero is left out.
    [[nodiscard]] std::string duration(std::int64_t larger, LibraryUnit largerUnit, std::int64_t smaller,
                                       LibraryUnit smallerUnit) const {
        UErrorCode status = U_ZERO_ERROR;
        const icu::Measure measures[] = {
            {icu::Formattable(larger), new icu::MeasureUnit(largerUnit()), status},
            {icu::Formattable(smaller), new icu::MeasureUnit(smallerUnit()), status},
        };
        const int first = larger == 0 ? 1 : 0;
        const int count = first == 0 && smaller != 0 ? 2 : 1;
        icu::UnicodeString text;
        icu::FieldPosition nowhere(icu::FieldPosition::DONT_CARE);
        return utf8(durations_->formatMeasures(measures + first, count, text, nowhere, status));
    }

private:
    void make(const icu::Locale& locale) {
        isEnglish_ = locale.getLanguage() == std::string_view("en");
        number_ = icu::number::NumberFormatter::withLocale(locale);
        UErrorCode status = U_ZERO_ERROR;
        durations_ = std::make_unique<icu::MeasureFormat>(locale, UMEASFMT_WIDTH_NARROW, status);
        for (std::size_t i = 0; i < byteUnits.size(); ++i) {
            // Only the long form of the unit has a plural, as in "999 bytes".
            const UNumberUnitWidth width = i == 0 ? UNUM_UNIT_WIDTH_FULL_NAME : UNUM_UNIT_WIDTH_SHORT;
            quantities_[i] = number_.unit(byteUnits[i].unit())
                                 .unitWidth(width)
                                 .precision(icu::number::Precision::maxFraction(2));
        }
    }

    std::optional<std::string> localeName_;
    bool isEnglish_ = false;
    icu::number::LocalizedNumberFormatter number_;
    std::array<icu::number::LocalizedNumberFormatter, byteUnits.size()> quantities_;
    std::unique_ptr<icu::MeasureFormat> durations_;
};

NumberFormats& numberFormats() {
    thread_local NumberFormats formats;
    return formats.current();
}

} // namespace

std::string TextFormat::date(Instant instant, DateStyle dateStyle, DateStyle timeStyle) {
    thread_local DateFormats formats;
    const icu::DateFormat* const format = formats.get(dateStyle, timeStyle);
    return format != nullptr ? formatted(*format, instant) : std::string();
}

std::string TextFormat::date(Instant instant, DateStyle dateStyle, DateStyle timeStyle,
                             std::string_view localeTag) {
    if (dateStyle == DateStyle::none && timeStyle == DateStyle::none) {
        return {};
    }
    const std::unique_ptr<icu::DateFormat> format =
        makeDateFormat(dateStyle, timeStyle, localeNamed(localeTag));
    return format ? formatted(*format, instant) : std::string();
}

std::string TextFormat::duration(double seconds) {
    constexpr double longest = 1e15;
    constexpr std::int64_t perMinute = 60;
    constexpr std::int64_t perHour = 3600;
    const auto whole = seconds > 0 ? static_cast<std::int64_t>(std::min(seconds, longest)) : 0;
    const NumberFormats& formats = numberFormats();
    return whole >= perHour ? formats.duration(whole / perHour, icu::MeasureUnit::getHour,
                                               whole % perHour / perMinute, icu::MeasureUnit::getMinute)
                            : formats.duration(whole / perMinute, icu::MeasureUnit::getMinute,
                                               whole % perMinute, icu::MeasureUnit::getSecond);
}

std::string TextFormat::byteCount(std::int64_t bytes) {
    const NumberFormats& formats = numberFormats();
    if (bytes == 0) {
        return formats.isEnglish() ? "Zero KB" : formats.quantity(0, kilobyteIndex);
    }
    const auto unsignedBytes = static_cast<std::uint64_t>(bytes);
    const std::uint64_t magnitude = bytes < 0 ? 0 - unsignedBytes : unsignedBytes;
    std::size_t index = 0;
    std::uint64_t steps = magnitude;
    // A size that rounds up to 1000 of one unit is shown in the next unit.
    while (index + 1 < byteUnits.size() && steps >= 1000 * byteUnits[index].stepsPerUnit) {
        ++index;
        const std::uint64_t step = byteUnits[index].bytes / byteUnits[index].stepsPerUnit;
        steps = (magnitude + step / 2) / step;
    }
    const double amount = static_cast<double>(steps) / static_cast<double>(byteUnits[index].stepsPerUnit);
    return formats.quantity(bytes < 0 ? -amount : amount, index);
}

std::string TextFormat::number(std::int64_t value) {
    return numberFormats().number(value);
}

std::string TextFormat::count(std::int64_t value, std::string_view singular) {
    return number(value) + " " + std::string(singular) + (value == 1 ? "" : "s");
}

} // namespace lumeo
