#pragma once

#include <cstdint>
#include <string>

namespace lumeo {

/// The live counters of a run.
struct OperationProgress {
    std::int64_t totalFiles = 0;
    std::int64_t processedCount = 0; ///< files with any outcome
    std::int64_t verifiedCount = 0;
    std::int64_t skippedCount = 0;
    std::int64_t warningsCount = 0;          ///< always 0 in a run
    std::int64_t errorsCount = 0;            ///< failed records and items without a planned destination
    std::int64_t transferredBytes = 0;       ///< sizes of the verified items
    std::int64_t totalBytes = 0;             ///< sizes of all items, duplicates included
    std::string currentItemName;             ///< bytes as on disk
    double currentThroughputBytesPerSec = 0; ///< over the last moments
    double averageThroughputBytesPerSec = 0; ///< since the start
    double estimatedSecondsRemaining = 0;    ///< at the average rate
    bool isPaused = false;
    bool isCancelled = false; ///< only in the last record of a cancelled run
    bool isCompleted = false; ///< only in the last record of a run that was not cancelled
    double elapsedSeconds = 0;
    friend bool operator==(const OperationProgress&, const OperationProgress&) = default;
};

} // namespace lumeo
