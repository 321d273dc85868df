#pragma once

#include "platform/Instant.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace lumeo {

class FileWindow;

/// The layout of the packets of a transport stream in a file.
struct TransportPackets {
    std::size_t first = 0; ///< where the first complete one starts
    std::size_t length = 0;
};

/// Absent when the start of a file shows no transport stream. A transport stream has packets of one length
/// that start with the same byte. The rest of a cut packet may come before them.
std::optional<TransportPackets> transportPackets(std::string_view head);

// The recording dates of camcorders that write them into the pictures and not into the container. Each is the
// camera's wall clock, read in the user's zone. Absent when there is none or when the clock was never set.

/// AVCHD: with the pictures in the first 1 MiB of a transport stream.
std::optional<Instant> avchdDate(FileWindow& file);

/// DV: between the pictures of the first two frames. The first frame starts at `offset`.
std::optional<Instant> dvDate(FileWindow& file, std::uint64_t offset = 0);

/// The first bytes of each DV frame.
inline constexpr std::string_view dvFrameStart("\x1F\x07\0", 3);

} // namespace lumeo
