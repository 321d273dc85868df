#pragma once

#include "model/MediaItem.h"
#include "model/OrganizationPlan.h"

#include <cstdint>
#include <span>

namespace lumeo {

/// The bytes that a run over `items` is expected to write: all of them, but for the later members of
/// each group of identical files when those are to be skipped.
std::int64_t requiredOutputSizeBytes(std::span<const MediaItem> items, DuplicatePolicy policy);

} // namespace lumeo
