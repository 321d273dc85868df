#pragma once

#include <cstdint>

namespace lumeo {

// The messages between the program and its media helper, one question and one answer at a time.

/// Sent together with the open file. A question about the cage has no file, and its answer is a CageWalls.
struct MediaQuestion {
    static constexpr std::uint64_t aboutTheCage = 0xFF;
    std::int64_t fileSize = 0;   ///< bytes
    std::uint64_t container = 0; ///< a ForeignContainer, or aboutTheCage
};

struct MediaAnswer {
    double durationSeconds = 0; ///< 0 when unknown
    double width = 0;           ///< pixels, as shown; 0 without moving pictures
    double height = 0;
    std::uint64_t isKnown = 0; ///< 0 for a refused file
};

} // namespace lumeo
