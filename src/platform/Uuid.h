#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace lumeo {

/// A 128-bit identifier. A default one is all zero and identifies nothing.
struct Uuid {
    std::array<std::uint8_t, 16> bytes{};

    /// A fresh random identifier; any thread may call.
    static Uuid random();

    /// The 36-character form, upper or lower case; absent for any other text.
    static std::optional<Uuid> fromText(std::string_view text);

    /// The 36-character form in upper case.
    [[nodiscard]] std::string text() const;

    friend bool operator==(const Uuid&, const Uuid&) = default;
    friend auto operator<=>(const Uuid&, const Uuid&) = default;
};

} // namespace lumeo

template<>
struct std::hash<lumeo::Uuid> {
    std::size_t operator()(const lumeo::Uuid& id) const noexcept;
};
