#pragma once

#include "model/MediaItem.h"
#include "model/OrganizationPlan.h"
#include "platform/FileSystem.h"

#include <span>
#include <stop_token>

namespace lumeo {

/// Gives every item its place in the archive.
struct DestinationPlanner {
    /// The folder below the root for items without a capture date.
    static constexpr const char* unknownDateFolder = "_Unknown Date";

    /// Sets `plannedDestinationURL` of every item, in order; earlier plans do not count as taken. Without
    /// a destination in `plan` nothing changes. Creates nothing; reads only existing files that an item
    /// with a known digest meets under its planned name. Blocks the calling thread.
    static void plan(std::span<MediaItem> items, const OrganizationPlan& plan, const FileSystem& fileSystem,
                     const std::stop_token& stop = {});
};

} // namespace lumeo
