#pragma once

#include <cstddef>
#include <span>

namespace lumeo {

/// A page-aligned buffer of `size` bytes that belongs to the calling thread and is used again by every
/// later call on it: jobs touch 100,000 small files, and memory fresh from the system for each of them
/// would cost more than reading them. Valid until the thread's next call with a larger size.
std::span<std::byte> threadChunkBuffer(std::size_t size);

} // namespace lumeo
