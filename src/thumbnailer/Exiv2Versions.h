#pragma once

#include <cstddef>
#include <cstdint>

#include <exiv2/exiv2.hpp>

/// What Exiv2 0.28 names or counts differently from 0.27. Only this header asks for the version.
namespace lumeo::exiv2 {

#if EXIV2_TEST_VERSION(0, 28, 0)

using Size = std::size_t;

inline std::int64_t integer(const Exiv2::Exifdatum& datum) {
    return datum.toInt64();
}

/// Allows reading the containers of CR3 and HEIF, which 0.28 always does.
inline void enableBoxes() {}

#else

using Size = long;

inline std::int64_t integer(const Exiv2::Exifdatum& datum) {
    return datum.toLong();
}

inline void enableBoxes() {
    Exiv2::enableBMFF(true);
}

#endif

} // namespace lumeo::exiv2
