#pragma once

#include <QString>

#include <cstdint>

namespace lumeo {

/// How the figures of a run are written, for people.

/// "12.5 MB/s"; "0 KB/s" for a rate that is not above 0 or not finite.
QString speedText(double bytesPerSecond);

/// "59s", "2m 5s", in whole seconds, the rest dropped; "0s" for a span that is not above 0 or not finite.
QString spanText(double seconds);

/// The share of `part` in `whole` in whole percent: "40%"; "0%" of nothing.
QString percentText(std::int64_t part, std::int64_t whole);

/// "1 file", "2 files".
QString fileCountText(std::int64_t count);

} // namespace lumeo
