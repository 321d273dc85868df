#pragma once

#include "model/MediaItem.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace lumeo {

class FileSystem;

/// A set of byte-identical files. Its first member is the one that a run keeps.
struct DuplicateGroup {
    Uuid id;
    std::vector<std::size_t> members;  ///< at least two positions in the list of items, in rising order
    std::int64_t reclaimableBytes = 0; ///< the sizes of all members except the first
    friend bool operator==(const DuplicateGroup&, const DuplicateGroup&) = default;
};

/// The groups that duplicate detection marked in `items`, in the order of their first members. Several names
/// of one file on the disk count once, as the first of them. A mark that only one file carries makes no
/// group. Any thread may call.
std::vector<DuplicateGroup> duplicateGroups(std::span<const MediaItem> items, const FileSystem& fileSystem);

} // namespace lumeo
