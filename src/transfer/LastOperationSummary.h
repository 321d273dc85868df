#pragma once

#include "transfer/OperationManifest.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace lumeo {

/// The summary of the last run that was not cancelled. It is kept when the program ends.
struct LastOperationSummary {
    std::string operationType; ///< "copy" or "move"
    std::int64_t processedCount = 0;
    std::int64_t verifiedCount = 0;
    std::int64_t skippedCount = 0;
    std::int64_t errorCount = 0;
    std::int64_t bytesTransferred = 0;
    double duration = 0; ///< seconds
    std::string destinationDisplayName;
    Instant completedAt;

    static LastOperationSummary of(const OperationManifest& manifest, Instant completedAt);
    friend bool operator==(const LastOperationSummary&, const LastOperationSummary&) = default;
};

/// One JSON object with the field names as keys. The date is in seconds since the start of 2001 UTC.
std::string encode(const LastOperationSummary& summary);

/// Absent when the text is not such an object.
std::optional<LastOperationSummary> decodeLastOperationSummary(std::string_view json);

} // namespace lumeo
