#include "app/CatalogueCounts.h"

namespace lumeo {

CatalogueCounts CatalogueCounts::of(std::span<const MediaItem> items) {
    CatalogueCounts counts;
    for (const MediaItem& item : items) {
        ++counts.items;
        counts.photos += item.mediaType == MediaType::photo ? 1 : 0;
        counts.videos += item.mediaType == MediaType::video ? 1 : 0;
        counts.raw += item.mediaType == MediaType::rawPhoto ? 1 : 0;
        counts.duplicates += item.exactDuplicateGroupID ? 1 : 0;
        counts.missingDates += item.resolvedDate ? 0 : 1;
        counts.warnings += item.scanWarnings.empty() ? 0 : 1;
        counts.bytes += item.fileSize;
    }
    return counts;
}

} // namespace lumeo
