#pragma once

#include "platform/DiskTraits.h"
#include "platform/FilePath.h"

#include <string_view>

namespace lumeo {

/// What disks with a file system of this type do, as far as the type tells. One that is not known counts as
/// one of this system's own.
DiskTraits traitsOfType(std::string_view fileSystemType);

/// What the disk under `path`, which exists, does: by its type, its own limits and the names that it holds.
/// Writes nothing. `systemRoot` is where "proc" and "run" lie.
DiskTraits traitsOfDisk(const FilePath& path, const FilePath& systemRoot);

} // namespace lumeo
