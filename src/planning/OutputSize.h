#pragma once

#include "model/MediaItem.h"
#include "model/OrganizationPlan.h"
#include "platform/DiskTraits.h"

#include <cstdint>
#include <span>

namespace lumeo {

/// The bytes that a run over `items` is expected to write. If duplicates are to be skipped, the later members
/// of each group of identical files do not count.
std::int64_t requiredOutputSizeBytes(std::span<const MediaItem> items, DuplicatePolicy policy);

/// The number of items that are larger than any file on the disk can be.
std::int64_t tooLargeFiles(std::span<const MediaItem> items, const DiskTraits& disk);

} // namespace lumeo
