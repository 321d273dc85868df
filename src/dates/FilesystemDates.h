#pragma once

#include "model/MediaItem.h"
#include "platform/Clock.h"

#include <span>

namespace lumeo {

/// Lets the dates of the file system stand in for a missing capture date, or no longer. A date that was
/// found in a file or its name is never touched. Any thread may call.
struct FilesystemDates {
    /// Dates every item that has no date, with low confidence, by its creation or, where that is missing or
    /// later, by its last change; `clock` tells what lies in the future.
    static void apply(std::span<MediaItem> items, const Clock& clock);

    /// True for the dates that apply() gives.
    static bool isOne(DateSourceType source);

    /// Takes back what apply() did.
    static void remove(std::span<MediaItem> items);
};

} // namespace lumeo
