#pragma once

#include "platform/FilePath.h"

#include <optional>
#include <string>

namespace lumeo {

struct Mount;

/// What kernel and udev tell of the block device that a file system lies on.
struct BlockDevice {
    std::optional<std::string> label; ///< of the file system
    std::optional<std::string> model; ///< of the disk
    bool hasRemovableMedium = false;  ///< the medium can be taken out of its drive
    std::optional<bool> isInternal;   ///< by the way the disk is connected; absent for disks made of software
};

/// The device of a mount; absent for a file system without one, such as a share or one in memory.
/// `systemRoot` is where "sys" and "dev" lie.
std::optional<BlockDevice> blockDeviceOf(const Mount& mount, const FilePath& systemRoot);

} // namespace lumeo
