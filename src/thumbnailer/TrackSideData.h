#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

namespace lumeo {

/// The additional data of a track. Empty when there is none. FFmpeg 6.1 keeps it in another place than 5.1.
inline std::span<const std::uint8_t> sideData(const AVStream& track, AVPacketSideDataType type) {
#if LIBAVFORMAT_VERSION_INT >= AV_VERSION_INT(60, 15, 100)
    const AVCodecParameters& codec = *track.codecpar;
    const AVPacketSideData* const found =
        av_packet_side_data_get(codec.coded_side_data, codec.nb_coded_side_data, type);
    return found != nullptr ? std::span<const std::uint8_t>(found->data, found->size)
                            : std::span<const std::uint8_t>();
#else
    std::size_t size = 0;
    const std::uint8_t* const data = av_stream_get_side_data(&track, type, &size);
    return {data, data != nullptr ? size : 0};
#endif
}

} // namespace lumeo
