#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace lumeo {

/// How far a check or a verification has come.
struct ReadingProgress {
    std::int64_t files = 0; ///< that there is an answer for
    std::int64_t totalFiles = 0;
    std::int64_t bytes = 0;
    std::int64_t totalBytes = 0; ///< 0 where the sizes are not known beforehand
    std::string currentItemName; ///< bytes as on disk
    friend bool operator==(const ReadingProgress&, const ReadingProgress&) = default;
};

/// Called on the thread that reads, before each file.
using ReadingCallback = std::function<void(const ReadingProgress&)>;

} // namespace lumeo
