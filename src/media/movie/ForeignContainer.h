#pragma once

#include "media/FileWindow.h"

#include <cstdint>
#include <optional>

namespace lumeo {

/// The containers that carry no recording date, though the pictures in them may (see StreamDates). Only a
/// library reads them, in a process of its own, for duration and size.
enum class ForeignContainer : std::uint8_t {
    transportStream,
    programStream,
    mpegVideo,
    dv,
    flash,
    mxf,
    ogg,
    realMedia,
    windowsTelevision,
    wave,
    wave64,
    mp3,
    aac,
    ac3,
    flac,
    aiff,
    amr,
    coreAudio,
    monkeysAudio,
    wavPack,
    sunAudio,
};
inline constexpr std::size_t foreignContainerCount = 21;

/// The container that the first bytes of a file show it to be; absent for anything else, such as noise or a
/// playlist, which names other files.
std::optional<ForeignContainer> foreignContainer(FileWindow& file);

} // namespace lumeo
