#pragma once

#include "model/MediaItem.h"
#include "platform/FileSystem.h"

#include <stop_token>
#include <vector>

namespace lumeo {

/// Finds byte-identical files and gives each set a group identifier. Blocks the thread it is called on.
class DuplicateDetector {
public:
    /// `fileSystem` must outlive the detector.
    explicit DuplicateDetector(const FileSystem& fileSystem) : fileSystem_(fileSystem) {}

    /// Returns the same items in the same order. `sha256Hash` is set on items that share their size with
    /// another item and could be read. `exactDuplicateGroupID` is set on items that have an identical copy.
    /// Empty files are never duplicates. Once `stop` is requested, no further digest is made, and what was
    /// found stays.
    std::vector<MediaItem> detectDuplicates(std::vector<MediaItem> items, std::stop_token stop = {});

private:
    const FileSystem& fileSystem_;
};

} // namespace lumeo
