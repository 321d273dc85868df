#pragma once

#include "model/MediaItem.h"
#include "model/OrganizationPlan.h"
#include "platform/FileSystem.h"

#include <cstddef>
#include <functional>
#include <span>
#include <stop_token>
#include <string_view>

namespace lumeo {

/// Gives every item its place in the archive.
struct DestinationPlanner {
    /// The folder below the root for items without a capture date.
    static constexpr const char* unknownDateFolder = "_Unknown Date";
    /// The folder below the root for the later members of a group of identical files, when they are to
    /// be kept apart; below it they lie as they would below the root.
    static constexpr const char* duplicatesFolder = "_Duplicates";

    /// The number of items that have their place.
    using ProgressCallback = std::function<void(std::size_t plannedCount)>;

    /// Sets `plannedDestinationURL` of every item, in order; earlier plans do not count as taken. Without
    /// a destination in `plan` nothing changes. Creates nothing. Blocks the calling thread, on which
    /// `onProgress` (may be empty) is called now and then; a requested `stop` leaves the remaining items
    /// as they are.
    ///
    /// An item that meets an existing file of its own size is hashed, which sets its `sha256Hash`, and
    /// so is that file: a card that is imported again leads to the copies that are there already.
    ///
    /// The places are ones that the destination's disk takes, and that it tells apart. An item that is larger
    /// than any file there can be gets a warning that begins with `tooLarge`, for as long as that is so.
    static void plan(std::span<MediaItem> items, const OrganizationPlan& plan, const FileSystem& fileSystem,
                     const std::stop_token& stop = {}, const ProgressCallback& onProgress = {});

    /// The same for a disk of which more is known than its file system tells.
    static void plan(std::span<MediaItem> items, const OrganizationPlan& plan, const FileSystem& fileSystem,
                     const DiskTraits& disk, const std::stop_token& stop = {},
                     const ProgressCallback& onProgress = {});

    static constexpr std::string_view tooLarge = "Too large for the destination's disk";
};

} // namespace lumeo
