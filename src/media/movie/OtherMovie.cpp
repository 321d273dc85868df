#include "media/BoundedFile.h"
#include "media/movie/ContainerReaders.h"
#include "media/movie/LibavMovie.h"

#include <algorithm>
#include <chrono>
#include <memory>
#include <span>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

namespace lumeo {
namespace {

constexpr ReadLimits limits{
    .bytes = 8 * 1024 * 1024, .work = std::chrono::milliseconds(500), .wait = std::chrono::seconds(5)};

/// Containers that carry media themselves. Playlists, which name other files, and texts are left out.
constexpr const char* knownContainers = "mpeg,mpegts,mpegvideo,dv,flv,mxf,ogg,rm,wtv,"
                                        "mp3,wav,w64,aac,ac3,flac,aiff,amr,caf,ape,wv,au";

/// Whose decoders may look for the size of the pictures; sound is never decoded.
constexpr const char* knownCodecs = "h264,hevc,mpeg1video,mpeg2video,mpeg4,dvvideo,flv,vp6,vp6f,vp6a";

MovieVideoTrack videoTrack(const AVStream& stream) {
    MovieVideoTrack track{static_cast<double>(stream.codecpar->width),
                          static_cast<double>(stream.codecpar->height)};
    const AVRational aspect = stream.sample_aspect_ratio.num > 0 ? stream.sample_aspect_ratio
                                                                 : stream.codecpar->sample_aspect_ratio;
    if (aspect.num > 0 && aspect.den > 0) {
        track.naturalWidth *= av_q2d(aspect);
    }
    return track;
}

bool isMovingPicture(const AVStream& stream) {
    return stream.codecpar->codec_type == AVMEDIA_TYPE_VIDEO &&
           (stream.disposition & AV_DISPOSITION_ATTACHED_PIC) == 0;
}

MovieProperties propertiesOf(const AVFormatContext& movie) {
    MovieProperties properties;
    if (movie.duration != AV_NOPTS_VALUE && movie.duration > 0) {
        properties.durationSeconds = static_cast<double>(movie.duration) / AV_TIME_BASE;
    }
    const std::span<AVStream* const> streams(movie.streams, movie.nb_streams);
    const auto found =
        std::ranges::find_if(streams, [](const AVStream* stream) { return isMovingPicture(*stream); });
    if (found != streams.end()) {
        properties.videoTrack = videoTrack(**found);
    }
    return properties;
}

} // namespace

std::optional<MovieProperties> readOtherMovie(ReadableFile& file) {
    BoundedFile bounded(file, limits);
    const std::unique_ptr<LibavMovie> movie = LibavMovie::open(bounded, knownContainers, knownCodecs);
    if (!movie) {
        return std::nullopt;
    }
    // A failure leaves what is known already.
    avformat_find_stream_info(&movie->context(), nullptr);
    return propertiesOf(movie->context());
}

} // namespace lumeo
