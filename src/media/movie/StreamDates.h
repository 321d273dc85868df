#pragma once

#include "platform/Instant.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace lumeo {

class FileWindow;

/// How the packets of a transport stream lie in a file.
struct TransportPackets {
    std::size_t first = 0; ///< where the first whole one begins
    std::size_t length = 0;
};

/// Absent when the head of a file shows no transport stream: packets of one length, each begun by the same
/// byte, perhaps behind the end of one that was cut.
std::optional<TransportPackets> transportPackets(std::string_view head);

// When a camcorder recorded, for those that write it into the pictures and not into the container. Each is
// the camera's wall clock, read in the user's zone; absent when there is none or it was never set.

/// AVCHD: beside the pictures in the first 1 MiB of a transport stream.
std::optional<Instant> avchdDate(FileWindow& file);

/// DV: between the pictures of the first two frames, of which the first begins at `offset`.
std::optional<Instant> dvDate(FileWindow& file, std::uint64_t offset = 0);

/// The first bytes of each frame of DV.
inline constexpr std::string_view dvFrameStart("\x1F\x07\0", 3);

} // namespace lumeo
