#pragma once

#include "platform/FilePath.h"
#include "platform/Volumes.h"

#include <span>
#include <vector>

namespace lumeo {

/// A folder, drive or file to walk through.
struct ScanRoot {
    FilePath path;
    std::vector<FilePath> otherRoots; ///< the other roots below it, as a walk from `path` meets them

    friend bool operator==(const ScanRoot&, const ScanRoot&) = default;
};

/// The roots to walk so that no file is met twice. Of several paths to one place, the first one counts. Each
/// root lists what it must leave to other roots. The inner of two nested roots stays a root of its own,
/// because the folders between them may be unreadable. Asks the system for each real path once.
std::vector<ScanRoot> scanRoots(std::span<const FilePath> paths, const Volumes& volumes);

} // namespace lumeo
