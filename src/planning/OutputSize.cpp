#include "planning/OutputSize.h"

#include <algorithm>
#include <unordered_set>

namespace lumeo {

std::int64_t requiredOutputSizeBytes(std::span<const MediaItem> items, DuplicatePolicy policy) {
    std::int64_t total = 0;
    std::unordered_set<Uuid> seen;
    for (const MediaItem& item : items) {
        const bool isLaterCopy = policy == DuplicatePolicy::skipDuplicates && item.exactDuplicateGroupID &&
                                 !seen.insert(*item.exactDuplicateGroupID).second;
        if (!isLaterCopy) {
            total += item.fileSize;
        }
    }
    return total;
}

std::int64_t tooLargeFiles(std::span<const MediaItem> items, const DiskTraits& disk) {
    return std::ranges::count_if(items, [&disk](const MediaItem& item) {
        return disk.largestFile && item.fileSize > *disk.largestFile;
    });
}

} // namespace lumeo
