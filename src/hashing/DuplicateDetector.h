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

    /// The same items in the same order, with `sha256Hash` set on those that share their size with
    /// another and could be read, and `exactDuplicateGroupID` on those that have a twin. Empty files
    /// take no part. Once `stop` is requested, no further digest is made; what was found stays.
    std::vector<MediaItem> detectDuplicates(std::vector<MediaItem> items, std::stop_token stop = {});

private:
    const FileSystem& fileSystem_;
};

} // namespace lumeo
