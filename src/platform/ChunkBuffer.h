#pragma once

#include <cstddef>
#include <span>

namespace lumeo {

/// A page-aligned buffer of `size` bytes that belongs to the calling thread. Every later call on that thread
/// uses it again: jobs read 100,000 small files, and new memory from the system for each would cost more than
/// reading it. Valid until the thread's next call with a larger size.
std::span<std::byte> threadChunkBuffer(std::size_t size);

} // namespace lumeo
