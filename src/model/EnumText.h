#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

namespace lumeo {

/// The coded text ("raw value") of every case of an enumeration, in declaration order. Each enumeration that
/// is written to a file has a specialisation:
///
///     template<> struct EnumTexts<Colour> {
///         static constexpr std::array texts{std::pair{Colour::red, std::string_view("red")}, …};
///     };
template<class Enum>
struct EnumTexts;

/// The text that stands for a case.
template<class Enum>
constexpr std::string_view rawValue(Enum value) {
    for (const auto& [candidate, text] : EnumTexts<Enum>::texts) {
        if (candidate == value) {
            return text;
        }
    }
    return {};
}

/// The case that a coded text names. Absent for any other text, however similar.
template<class Enum>
constexpr std::optional<Enum> fromRawValue(std::string_view text) {
    for (const auto& [value, candidate] : EnumTexts<Enum>::texts) {
        if (candidate == text) {
            return value;
        }
    }
    return std::nullopt;
}

/// All cases, in declaration order.
template<class Enum>
constexpr auto allCases() {
    std::array<Enum, EnumTexts<Enum>::texts.size()> cases{};
    for (std::size_t i = 0; i < cases.size(); ++i) {
        cases[i] = EnumTexts<Enum>::texts[i].first;
    }
    return cases;
}

} // namespace lumeo
