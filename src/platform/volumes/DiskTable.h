#pragma once

#include "platform/DiskTraits.h"
#include "platform/FilePath.h"

#include <string_view>

namespace lumeo {

/// The behaviour of disks with this type of file system, as far as the type tells. An unknown type is treated
/// like this system's own.
DiskTraits traitsOfType(std::string_view fileSystemType);

/// The behaviour of the disk under `path`, which must exist, by its type, its limits and its names. Writes
/// nothing. "proc" and "run" are looked for in `systemRoot`.
DiskTraits traitsOfDisk(const FilePath& path, const FilePath& systemRoot);

} // namespace lumeo
