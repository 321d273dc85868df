#pragma once

#include "media/helper/CageWalls.h"

#include <chrono>
#include <cstdint>

namespace lumeo {

/// What the caged process may use up.
struct CageLimits {
    std::uint64_t addresses = 0; ///< bytes of address space, libraries included
    std::uint64_t memory = 0;    ///< bytes of memory of its own
    std::chrono::seconds work{}; ///< processor time, all told
};

/// Locks the process in, for good: from here on it opens, creates, renames and removes no file, asks nothing
/// of a network, starts no process and no program. Left are its memory, its threads, the time, reading what
/// it is handed open and answering on its standard output. What a library loads late must be loaded before.
/// To be called while the process has one thread.
CageWalls enterCage(const CageLimits& limits);

/// From now on until the next call, more processor time than this ends the process.
void limitWork(std::chrono::microseconds work);

} // namespace lumeo
