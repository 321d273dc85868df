#pragma once

#include "model/MediaItem.h"
#include "transfer/OperationManifest.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace lumeo {

/// The outcome of a run in numbers, from its journal and its items.
struct ReportFigures {
    /// A row of the timeline: a year of the user's calendar, or "Unknown" for files without a date.
    struct Year {
        std::string label;
        std::int64_t fileCount = 0;
        friend bool operator==(const Year&, const Year&) = default;
    };

    std::int64_t organized = 0;
    std::int64_t skipped = 0;
    std::int64_t failed = 0;
    std::int64_t transferredBytes = 0;
    double durationSeconds = 0;
    std::string mode = "COPY"; ///< in upper case
    std::int64_t photos = 0;   ///< without RAW files
    std::int64_t videos = 0;
    std::int64_t undated = 0;
    std::vector<Year> timeline; ///< sorted by label; no empty rows

    /// `manifest` may be null, which means no run. Any thread may call.
    static ReportFigures of(const OperationManifest* manifest, std::span<const MediaItem> items);

    friend bool operator==(const ReportFigures&, const ReportFigures&) = default;
};

} // namespace lumeo
