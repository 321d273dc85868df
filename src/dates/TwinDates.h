#pragma once

#include "model/MediaItem.h"

#include <span>

namespace lumeo {

/// Lets identical files date each other: one may have a date in its name, or be taken for a movie where the
/// other is taken for a photo. Any thread may call.
struct TwinDates {
    /// Dates each item that has no date, or the file system's alone, by the item of its group of identical
    /// files whose date is trusted most, the first of them. It gets that item's source and confidence too,
    /// and a warning of its own. Without groups nothing changes.
    static void apply(std::span<MediaItem> items);
};

} // namespace lumeo
