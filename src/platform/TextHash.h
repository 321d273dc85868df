#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

namespace lumeo {

/// Allows searching unordered containers with std::string keys by a view, without making a string.
struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const noexcept {
        return std::hash<std::string_view>{}(text);
    }
};

} // namespace lumeo
