#pragma once

#include "media/FileWindow.h"

#include <cstdint>
#include <optional>

namespace lumeo {

/// The containers that carry no recording date. The pictures in them may carry one (see StreamDates). Only a
/// library in a separate process reads them, for duration and size.
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

/// The container that a file's first bytes show. Absent for anything else, such as noise or a playlist, which
/// names other files.
std::optional<ForeignContainer> foreignContainer(FileWindow& file);

} // namespace lumeo
