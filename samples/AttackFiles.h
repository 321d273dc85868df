#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace lumeo {

// Files that no camera writes. They are small, but they cost a careless reader time, memory or its life.

/// A heap of a CRW file with its directory of tags and values. The values of heap tags are heaps themselves.
std::string crwHeap(const std::vector<std::pair<unsigned, std::string>>& values);

/// A CRW file around its outermost heap.
std::string crwFile(const std::string& heap);

/// Heaps within heaps. Two entries lead to each heap, so 1 KB is walked 2 to the power of 40 times.
std::string crwOfDoublingHeaps(int levels = 40);

/// Heaps nested deeply enough to overflow a stack.
std::string crwOfNestedHeaps(int depth = 80'000);

/// A transport stream with one H.264 track. Its header claims `width` by `height` macroblocks of 16 by 16.
/// Each of its `frames` repeats the whole picture in a few bytes. So it is small to store and large to
/// decode.
std::string transportStreamOfLargeFrames(unsigned width, unsigned height, unsigned frames);

/// A PNG whose pixels are in chunks of 8 KiB, as many programs write them.
std::string pngOfManyChunks(std::size_t chunks);

/// The first bytes of movie containers that make some decoders of raw photos loop or abort.
std::vector<std::string> moviesForRawNames();

/// Random bytes, the same on every machine.
std::string noise(std::size_t size, unsigned seed = 1);

} // namespace lumeo
