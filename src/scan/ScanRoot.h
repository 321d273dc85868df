#pragma once

#include "platform/FilePath.h"
#include "platform/Volumes.h"

#include <span>
#include <vector>

namespace lumeo {

/// A folder, drive or file to walk through.
struct ScanRoot {
    FilePath path;
    std::vector<FilePath> otherRoots; ///< below it, as a walk from `path` meets them

    friend bool operator==(const ScanRoot&, const ScanRoot&) = default;
};

/// The roots to walk so that no file is met twice: of several paths to one place the first, and for each
/// root what it must leave to another one. The outer of two nested roots does not stand for the inner one:
/// what lies between them may be closed to a walk. Asks the system for real paths, once each.
std::vector<ScanRoot> scanRoots(std::span<const FilePath> paths, const Volumes& volumes);

} // namespace lumeo
