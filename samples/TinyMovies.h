#pragma once

#include "platform/Instant.h"
#include "platform/LocalCalendar.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace lumeo {

/// The facts in a made movie. An absent fact is left out of the file or stored as unset. A container leaves
/// out a fact that it has no field for. No movie has pictures.
struct TinyMovie {
    std::optional<Instant> headerTime; ///< the container's own creation time
    std::optional<Instant> trackTime;  ///< QuickTime and MP4: the creation time of the media in its track
    std::optional<std::string>
        quickTimeCreationDate;              ///< QuickTime and MP4: "com.apple.quicktime.creationdate"
    std::optional<std::string> userDataDay; ///< QuickTime and MP4: "©day"
    std::optional<std::string> wallClock;   ///< AVI: the text of its date, "Mon Mar 10 15:04:43 2003"
    std::optional<std::string> infoDate;    ///< AVI: the text of the date behind the pictures
    std::string pictures = {};              ///< AVI: the bytes of the first one
    double durationSeconds = 2.5;
    double width = 64; ///< pixels
    double height = 48;
    std::array<double, 4> transform{1, 0, 0, 1}; ///< QuickTime and MP4: a, b, c, d of the display matrix
};

/// QuickTime or MP4, valid as ".mov", ".mp4", ".m4v" and ".3gp". The media comes before the header, as
/// cameras write it.
std::string tinyQuickTime(const TinyMovie& movie = {});

std::string tinyMatroska(const TinyMovie& movie = {});
std::string tinyAsf(const TinyMovie& movie = {});
std::string tinyAvi(const TinyMovie& movie = {});

/// What camcorders write, without the pictures: the head of a frame of DV; and the packets of a transport
/// stream, of `packetSize` bytes each, with camera facts of H.264 that begin within the one and end within
/// the other.
std::string tinyDv(const WallTime& clock);
std::string tinyAvchd(const WallTime& clock, std::size_t packetSize = 192);

/// One box of a QuickTime or MP4 file, for files that no camera would write.
std::string movieBox(std::string_view type, std::string_view content);

/// `value` in `width` bytes, highest byte first.
std::string bigEndianBytes(std::uint64_t value, int width);

/// `value` in `width` bytes, lowest byte first.
std::string littleEndianBytes(std::uint64_t value, int width);

} // namespace lumeo
