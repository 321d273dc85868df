#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace lumeo {

// Files that no camera writes: small ones that cost a careless reader time, memory or its life.

/// A heap of a CRW with its directory of tags and values. Values of heap tags are heaps themselves.
std::string crwHeap(const std::vector<std::pair<unsigned, std::string>>& values);

/// A CRW file around its outermost heap.
std::string crwFile(const std::string& heap);

/// Heaps in heaps, of which each is led to by two entries: 1 KB is walked 2 to the 40th times.
std::string crwOfDoublingHeaps(int levels = 40);

/// As many heaps in each other as fill a stack.
std::string crwOfNestedHeaps(int depth = 80'000);

} // namespace lumeo
