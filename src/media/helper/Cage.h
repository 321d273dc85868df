#pragma once

#include "media/helper/CageWalls.h"

#include <chrono>
#include <cstdint>

namespace lumeo {

/// How much the caged process may use.
struct CageLimits {
    std::uint64_t addresses = 0; ///< bytes of address space, libraries included
    std::uint64_t memory = 0;    ///< bytes of private memory
    std::chrono::seconds work{}; ///< processor time, in total
};

/// Locks the process in for good. After this it cannot open, create, rename or remove a file, use the
/// network, or start a process or a program. It can still use memory, threads and time, read the files that
/// it is given, and answer on its standard output. Libraries must load everything before. Call this while the
/// process has one thread.
CageWalls enterCage(const CageLimits& limits);

/// The process is ended when it uses more processor time than this, unless the next call comes first.
void limitWork(std::chrono::microseconds work);

} // namespace lumeo
