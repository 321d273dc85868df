#pragma once

#include "platform/Instant.h"
#include "platform/SharedText.h"

#include <cassert>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

namespace lumeo {

/// The one value of a type that stands for "absent". A specialisation gives `value`, and `isAbsent`, which
/// recognises it.
template<class T>
struct AbsentValue;

template<>
struct AbsentValue<Instant> {
    static constexpr Instant value = Instant::min(); // 292,000 years ago
    static constexpr bool isAbsent(Instant instant) noexcept { return instant == value; }
};

template<>
struct AbsentValue<std::int64_t> {
    static constexpr std::int64_t value = std::numeric_limits<std::int64_t>::min();
    static constexpr bool isAbsent(std::int64_t number) noexcept { return number == value; }
};

template<>
struct AbsentValue<double> {
    static constexpr double value = std::numeric_limits<double>::quiet_NaN();
    static bool isAbsent(double number) noexcept { return std::isnan(number); }
};

template<>
struct AbsentValue<SharedText> {
    static constexpr SharedText value{nullptr};
    static constexpr bool isAbsent(SharedText text) noexcept { return text.text_ == nullptr; }
};

/// An optional value that needs no more memory than the bare value, for records that are kept by the million.
/// It is used like std::optional and converts from and to it. It cannot hold the absent value itself.
template<class T>
class CompactOptional {
public:
    constexpr CompactOptional() noexcept = default;
    constexpr CompactOptional(std::nullopt_t) noexcept {}
    constexpr CompactOptional(T value) noexcept : value_(value) {}
    constexpr CompactOptional(const std::optional<T>& value) noexcept
        : value_(value ? *value : AbsentValue<T>::value) {}

    [[nodiscard]] constexpr bool hasValue() const noexcept { return !AbsentValue<T>::isAbsent(value_); }
    constexpr explicit operator bool() const noexcept { return hasValue(); }
    constexpr operator std::optional<T>() const { return hasValue() ? std::optional(value_) : std::nullopt; }

    constexpr const T& operator*() const noexcept {
        assert(hasValue());
        return value_;
    }
    constexpr const T* operator->() const noexcept { return &**this; }

    friend constexpr bool operator==(const CompactOptional& a, const CompactOptional& b) {
        return a.hasValue() ? b.hasValue() && a.value_ == b.value_ : !b.hasValue();
    }
    friend constexpr bool operator==(const CompactOptional& a, const std::optional<T>& b) {
        return a == CompactOptional(b);
    }
    friend constexpr bool operator==(const CompactOptional& a, std::nullopt_t) { return !a.hasValue(); }
    friend constexpr bool operator==(const CompactOptional& a, const T& b) {
        return a.hasValue() && a.value_ == b;
    }

private:
    T value_ = AbsentValue<T>::value;
};

} // namespace lumeo
