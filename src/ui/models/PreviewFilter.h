#pragma once

#include "model/EnumText.h"
#include "model/MediaItem.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace lumeo {

class NameSearch;

/// The filters of the preview's list.
enum class PreviewFilter : std::uint8_t { all, photos, videos, raw, duplicates, unknownDate, warnings };

template<>
struct EnumTexts<PreviewFilter> {
    static constexpr std::array texts{
        std::pair{PreviewFilter::all, std::string_view("all")},
        std::pair{PreviewFilter::photos, std::string_view("photos")},
        std::pair{PreviewFilter::videos, std::string_view("videos")},
        std::pair{PreviewFilter::raw, std::string_view("raw")},
        std::pair{PreviewFilter::duplicates, std::string_view("duplicates")},
        std::pair{PreviewFilter::unknownDate, std::string_view("unknownDate")},
        std::pair{PreviewFilter::warnings, std::string_view("warnings")},
    };
};

bool passes(PreviewFilter filter, const MediaItem& item);

/// How many items pass each filter.
class PreviewCounts {
public:
    PreviewCounts() = default;
    explicit PreviewCounts(std::span<const MediaItem> items);

    [[nodiscard]] std::int64_t of(PreviewFilter filter) const {
        return counts_[static_cast<std::size_t>(filter)];
    }

private:
    std::array<std::int64_t, EnumTexts<PreviewFilter>::texts.size()> counts_{};
};

/// The indices of the items that pass the filter and whose name the search finds, in the items' order.
std::vector<std::uint32_t> visibleItems(std::span<const MediaItem> items, PreviewFilter filter,
                                        const NameSearch& search);

/// The indices from `candidates` whose item has a name that the search finds.
std::vector<std::uint32_t> narrowed(std::span<const std::uint32_t> candidates,
                                    std::span<const MediaItem> items, const NameSearch& search);

} // namespace lumeo
