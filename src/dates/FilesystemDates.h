#pragma once

#include "model/MediaItem.h"
#include "platform/Clock.h"

#include <span>

namespace lumeo {

/// Uses the dates of the file system in place of missing capture dates, or removes them again. A date from a
/// file or its name is never touched. Any thread may call.
struct FilesystemDates {
    /// Dates every item that has no date, with low confidence. It uses the creation date, or the last change
    /// if the creation date is missing or later. `clock` tells which dates are in the future.
    static void apply(std::span<MediaItem> items, const Clock& clock);

    /// True for the kinds of dates that apply() gives.
    static bool isOne(DateSourceType source);

    /// Reverts apply().
    static void remove(std::span<MediaItem> items);
};

} // namespace lumeo
