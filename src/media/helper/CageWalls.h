#pragma once

#include <cstdint>

namespace lumeo {

/// The protections between a helper and the machine. Where the kernel lacks one, the others remain.
struct CageWalls {
    std::uint8_t noNewPrivileges = 0;  ///< 1 when no program it starts can have more rights
    std::uint8_t systemCallFilter = 0; ///< 1 when it can only read, answer, and use memory and time
    std::uint8_t fileSystemRules = 0;  ///< the version of Landlock; 0 when the kernel has none
    friend bool operator==(const CageWalls&, const CageWalls&) = default;
};

} // namespace lumeo
