#pragma once

#include "model/MediaItem.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace lumeo {

class FileSystem;

/// A set of byte-identical files. Its first member is the one that a run would keep.
struct DuplicateGroup {
    Uuid id;
    std::vector<std::size_t> members;  ///< at least two positions in the list of items, rising
    std::int64_t reclaimableBytes = 0; ///< the sizes of all members but the first
    friend bool operator==(const DuplicateGroup&, const DuplicateGroup&) = default;
};

/// The groups that duplicate detection marked in `items`, in order of their first members. Names of one file
/// on the disk count once, as the first of them; a mark that only one file carries makes no group. Any thread
/// may call.
std::vector<DuplicateGroup> duplicateGroups(std::span<const MediaItem> items, const FileSystem& fileSystem);

} // namespace lumeo
