#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace lumeo {

/// A few bytes can unpack to gigabytes, so the output ends soon after this many bytes.
constexpr std::size_t mostDecompressed = 4 * 1024 * 1024;

/// The output of a zlib stream, up to its end, to damage, or to `mostDecompressed`.
std::string zlibDecompressed(std::string_view bytes);

/// The same for a Brotli stream.
std::string brotliDecompressed(std::string_view bytes);

} // namespace lumeo
