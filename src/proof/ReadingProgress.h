#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace lumeo {

/// The progress of a check or a verification.
struct ReadingProgress {
    std::int64_t files = 0; ///< that have a result
    std::int64_t totalFiles = 0;
    std::int64_t bytes = 0;
    std::int64_t totalBytes = 0; ///< 0 when the sizes are not known in advance
    std::string currentItemName; ///< bytes as on disk
    friend bool operator==(const ReadingProgress&, const ReadingProgress&) = default;
};

/// Called on the reading thread, before each file.
using ReadingCallback = std::function<void(const ReadingProgress&)>;

} // namespace lumeo
