#pragma once

#include "platform/FilePath.h"

#include <optional>
#include <string>

namespace lumeo {

struct Mount;

/// What the kernel and udev tell about the block device of a file system.
struct BlockDevice {
    std::optional<std::string> label; ///< of the file system
    std::optional<std::string> model; ///< of the disk
    bool hasRemovableMedium = false;  ///< the medium can be taken out of its drive
    std::optional<bool> isInternal;   ///< decided by how the disk is connected; absent for virtual disks
};

/// The device of a mount. Absent for a file system without a device, such as a share or a file system in
/// memory. "sys" and "dev" are looked for in `systemRoot`.
std::optional<BlockDevice> blockDeviceOf(const Mount& mount, const FilePath& systemRoot);

} // namespace lumeo
