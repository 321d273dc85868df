#include "hashing/DuplicateDetector.h"

#include "hashing/StreamingHashService.h"

#include <algorithm>
#include <cstddef>
#include <tuple>
#include <utility>

namespace lumeo {
namespace {

using Positions = std::vector<std::size_t>;

/// Calls `each` with the bounds of every run of at least two neighbours that are alike according to `same`.
template<class Same, class Each>
void forEachRun(const Positions& positions, Same same, Each each) {
    for (auto begin = positions.begin(); begin != positions.end();) {
        const auto end =
            std::find_if_not(begin, positions.end(), [&](std::size_t other) { return same(*begin, other); });
        if (end - begin > 1) {
            each(begin, end);
        }
        begin = end;
    }
}

/// The items that have the same size as another item, in input order.
Positions candidates(const std::vector<MediaItem>& items) {
    Positions bySize;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (items[i].fileSize > 0) {
            bySize.push_back(i);
        }
    }
    std::ranges::sort(bySize, {}, [&](std::size_t i) { return items[i].fileSize; });
    Positions sharing;
    forEachRun(
        bySize, [&](std::size_t a, std::size_t b) { return items[a].fileSize == items[b].fileSize; },
        [&](auto begin, auto end) { sharing.insert(sharing.end(), begin, end); });
    std::ranges::sort(sharing);
    return sharing;
}

} // namespace

std::vector<MediaItem> DuplicateDetector::detectDuplicates(std::vector<MediaItem> items,
                                                           std::stop_token stop) {
    Positions hashed = candidates(items);
    // Follows the order of the scan, not of size. Neighbours in a folder are often neighbours on the disk.
    for (const std::size_t position : hashed) {
        if (stop.stop_requested()) {
            break;
        }
        MediaItem& item = items[position];
        Result<std::string, HashError> digest =
            StreamingHashService::computeSHA256(fileSystem_, item.sourceURL, StreamingHashService::chunkSize,
                                                [&] { return stop.stop_requested(); });
        if (digest) {
            item.sha256Hash = std::move(*digest);
        }
    }
    std::erase_if(hashed, [&](std::size_t i) { return !items[i].sha256Hash; });
    const auto content = [&](std::size_t i) { return std::tie(items[i].fileSize, *items[i].sha256Hash); };
    std::ranges::sort(hashed, {}, content);
    forEachRun(
        hashed, [&](std::size_t a, std::size_t b) { return content(a) == content(b); },
        [&](auto begin, auto end) {
            const Uuid group = Uuid::random();
            std::for_each(begin, end, [&](std::size_t i) { items[i].exactDuplicateGroupID = group; });
        });
    return items;
}

} // namespace lumeo
