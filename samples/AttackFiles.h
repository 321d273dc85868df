#pragma once

#include <cstddef>
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

/// A transport stream of one H.264 track whose head claims `width` by `height` macroblocks of 16 by 16, and
/// whose `frames` repeat the whole picture with a few bytes each: small to store, large to decode.
std::string transportStreamOfLargeFrames(unsigned width, unsigned height, unsigned frames);

/// A PNG whose pixels stand in chunks of 8 KiB, as many programs write them.
std::string pngOfManyChunks(std::size_t chunks);

/// Heads of the movie containers whose readers loop or abort in some decoders of raw photos.
std::vector<std::string> moviesForRawNames();

/// Bytes without any order, the same on every machine.
std::string noise(std::size_t size, unsigned seed = 1);

} // namespace lumeo
