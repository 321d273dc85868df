#pragma once

#include "platform/FilePath.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumeo {

/// One row of the kernel's table of mounts.
struct Mount {
    std::uint64_t id = 0;
    std::string device; ///< "major:minor"; major 0 where no one block device stands behind it
    FilePath point;
    std::string fileSystemType;
    std::string source; ///< as the mount was asked for: a device, a share, or any word
};

/// Reads the text of /proc/self/mountinfo; rows that are none are left out.
std::vector<Mount> parseMountTable(std::string_view text);

/// The mount that holds a path with links resolved: the one with the kernel's own number for it, where
/// that is known and listed, else the deepest above the path, of several on one point the last.
std::optional<Mount> mountHolding(const FilePath& path, std::optional<std::uint64_t> mountId,
                                  const std::vector<Mount>& table);

/// The mount that holds a path now. Absent when the path does not exist, or its mount is none that this
/// process may see. `systemRoot` is where "proc" lies.
std::optional<Mount> mountUnder(const FilePath& path, const FilePath& systemRoot);

} // namespace lumeo
