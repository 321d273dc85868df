#pragma once

#include "model/MediaItem.h"

#include <cstdint>
#include <span>

namespace lumeo {

/// The figures of a catalogue, all counted in one pass.
struct CatalogueCounts {
    std::int64_t items = 0;
    std::int64_t photos = 0; ///< without RAW files
    std::int64_t videos = 0;
    std::int64_t raw = 0;
    std::int64_t duplicates = 0; ///< items in groups of identical ones, including the first of each group
    std::int64_t missingDates = 0;
    std::int64_t warnings = 0; ///< items with at least one warning
    std::int64_t bytes = 0;

    /// Any thread may call.
    static CatalogueCounts of(std::span<const MediaItem> items);
    friend bool operator==(const CatalogueCounts&, const CatalogueCounts&) = default;
};

} // namespace lumeo
