#pragma once

#include <cstdint>

namespace lumeo {

/// What stands between a helper and the machine. A kernel that lacks one leaves the others.
struct CageWalls {
    std::uint8_t noNewPrivileges = 0;  ///< 1 where no program it starts could have more rights
    std::uint8_t systemCallFilter = 0; ///< 1 where only reading, memory, time and answering are left
    std::uint8_t fileSystemRules = 0;  ///< the version of Landlock; 0 where the kernel has none
    friend bool operator==(const CageWalls&, const CageWalls&) = default;
};

} // namespace lumeo
