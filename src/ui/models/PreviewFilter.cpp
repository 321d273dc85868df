#include "ui/models/PreviewFilter.h"

#include "ui/models/NameSearch.h"

#include <algorithm>
#include <iterator>

namespace lumeo {

bool passes(PreviewFilter filter, const MediaItem& item) {
    switch (filter) {
    case PreviewFilter::all:
        return true;
    case PreviewFilter::photos:
        return item.mediaType == MediaType::photo;
    case PreviewFilter::videos:
        return item.mediaType == MediaType::video;
    case PreviewFilter::raw:
        return item.mediaType == MediaType::rawPhoto;
    case PreviewFilter::duplicates:
        return item.exactDuplicateGroupID.has_value();
    case PreviewFilter::unknownDate:
        return !item.resolvedDate;
    case PreviewFilter::warnings:
        return !item.scanWarnings.empty();
    }
    return true;
}

PreviewCounts::PreviewCounts(std::span<const MediaItem> items) {
    for (const MediaItem& item : items) {
        for (const PreviewFilter filter : allCases<PreviewFilter>()) {
            counts_[static_cast<std::size_t>(filter)] += passes(filter, item) ? 1 : 0;
        }
    }
}

std::vector<std::uint32_t> visibleItems(std::span<const MediaItem> items, PreviewFilter filter,
                                        const NameSearch& search) {
    std::vector<std::uint32_t> visible;
    for (std::size_t index = 0; index < items.size(); ++index) {
        if (passes(filter, items[index]) && search.finds(items[index].fileName())) {
            visible.push_back(static_cast<std::uint32_t>(index));
        }
    }
    return visible;
}

std::vector<std::uint32_t> narrowed(std::span<const std::uint32_t> candidates,
                                    std::span<const MediaItem> items, const NameSearch& search) {
    std::vector<std::uint32_t> visible;
    std::ranges::copy_if(candidates, std::back_inserter(visible),
                         [&](std::uint32_t index) { return search.finds(items[index].fileName()); });
    return visible;
}

} // namespace lumeo
