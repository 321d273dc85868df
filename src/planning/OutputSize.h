#pragma once

#include "model/MediaItem.h"
#include "model/OrganizationPlan.h"
#include "platform/DiskTraits.h"

#include <cstdint>
#include <span>

namespace lumeo {

/// The bytes that a run over `items` is expected to write: all of them, but for the later members of
/// each group of identical files when those are to be skipped.
std::int64_t requiredOutputSizeBytes(std::span<const MediaItem> items, DuplicatePolicy policy);

/// How many of the items are larger than any file on the disk can be.
std::int64_t tooLargeFiles(std::span<const MediaItem> items, const DiskTraits& disk);

} // namespace lumeo
