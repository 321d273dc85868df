#pragma once

#include "model/Json.h"

#include <cstdint>
#include <string>

namespace lumeo {

/// The counters of one scan.
struct ScanProgress {
    std::int64_t photosCount = 0; ///< items produced, by type
    std::int64_t videosCount = 0;
    std::int64_t rawCount = 0;
    std::int64_t otherCount = 0;
    std::int64_t totalScannedCount = 0; ///< regular files of the walked folders that were examined
    std::int64_t unsupportedCount = 0;  ///< examined files that are not of a supported type
    std::int64_t errorsCount = 0;       ///< entries that the walk could not read
    std::int64_t totalBytesScanned = 0; ///< sizes of all items produced
    std::string currentItemName;        ///< the file that is being examined, bytes as on disk
    bool isPaused = false;              ///< set by the code that shows the progress
    bool isCancelled = false;           ///< set at the end
    bool isCompleted = false;           ///< set at the end
    double scanDurationSeconds = 0;

    /// The number of items produced.
    [[nodiscard]] std::int64_t supportedMediaCount() const noexcept {
        return photosCount + videosCount + rawCount + otherCount;
    }

    friend bool operator==(const ScanProgress&, const ScanProgress&) = default;
};

/// The counters under their field names.
Json encode(const ScanProgress& progress);

} // namespace lumeo
