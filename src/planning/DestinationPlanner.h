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

/// Gives every item its destination in the archive.
struct DestinationPlanner {
    /// The folder below the root for items without a capture date.
    static constexpr const char* unknownDateFolder = "_Unknown Date";
    /// The folder below the root for the later members of a group of identical files, if these are kept
    /// separately. Below it they have the same folders as they would have below the root.
    static constexpr const char* duplicatesFolder = "_Duplicates";

    /// The number of items that have a destination.
    using ProgressCallback = std::function<void(std::size_t plannedCount)>;

    /// Sets `plannedDestinationURL` of every item, in order. Earlier plans do not count as taken. Without a
    /// destination in `plan` nothing changes. Creates nothing. Blocks the calling thread and sometimes calls
    /// `onProgress` on it (may be empty). When `stop` is requested, the remaining items stay as they are.
    ///
    /// If an existing file has the size of an item that wants its name, both are hashed, which sets the
    /// item's `sha256Hash`. So a card that is imported again leads to the copies that exist already.
    ///
    /// The destination's disk accepts all destinations and can tell them apart. An item that is larger than
    /// any file there can be gets a warning that starts with `tooLarge`, as long as this is the case.
    static void plan(std::span<MediaItem> items, const OrganizationPlan& plan, const FileSystem& fileSystem,
                     const std::stop_token& stop = {}, const ProgressCallback& onProgress = {});

    /// The same for a disk about which more is known than its file system tells.
    static void plan(std::span<MediaItem> items, const OrganizationPlan& plan, const FileSystem& fileSystem,
                     const DiskTraits& disk, const std::stop_token& stop = {},
                     const ProgressCallback& onProgress = {});

    static constexpr std::string_view tooLarge = "Too large for the destination's disk";
};

} // namespace lumeo
