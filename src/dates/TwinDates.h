#pragma once

#include "model/MediaItem.h"

#include <span>

namespace lumeo {

/// Lets identical files give each other a date. One file may have a date in its name, or count as a movie
/// while the other counts as a photo. Any thread may call.
struct TwinDates {
    /// Dates each item that has no date or only one of the file system. The date comes from the identical
    /// item with the most trusted date, or the first of several. The item also gets that item's source and
    /// confidence, and a separate warning. Without groups nothing changes.
    static void apply(std::span<MediaItem> items);
};

} // namespace lumeo
