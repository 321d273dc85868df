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
    std::string device; ///< "major:minor"; major is 0 when there is no single block device
    FilePath point;
    std::string fileSystemType;
    std::string source; ///< the source given to mount: a device, a share, or any word
};

/// Reads the text of /proc/self/mountinfo. Invalid rows are left out.
std::vector<Mount> parseMountTable(std::string_view text);

/// The mount that holds a path whose links are resolved. It is the mount with the kernel's number, if the
/// number is known and listed. Otherwise it is the deepest mount above the path, and of several on one point
/// the last.
std::optional<Mount> mountHolding(const FilePath& path, std::optional<std::uint64_t> mountId,
                                  const std::vector<Mount>& table);

/// The mount that holds a path now. Absent when the path does not exist, or when this process cannot see its
/// mount. "proc" is looked for in `systemRoot`.
std::optional<Mount> mountUnder(const FilePath& path, const FilePath& systemRoot);

} // namespace lumeo
