#include "mediahelper/OtherMovie.h"

#include "mediahelper/LibavMovie.h"

#include <algorithm>
#include <array>
#include <memory>
#include <span>
#include <string_view>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

namespace lumeo {
namespace {

/// The library's readers, in the order of ForeignContainer.
constexpr std::array<const char*, foreignContainerCount> readers{
    "mpegts", "mpeg", "mpegvideo", "dv",   "flv",  "mxf", "ogg", "rm",  "wtv", "wav", "w64",
    "mp3",    "aac",  "ac3",       "flac", "aiff", "amr", "caf", "ape", "wv",  "au"};

/// The codecs whose decoders may look for the size of the pictures. Sound is never decoded.
constexpr std::array sizedCodecs{
    AV_CODEC_ID_H264,    AV_CODEC_ID_HEVC, AV_CODEC_ID_MPEG1VIDEO, AV_CODEC_ID_MPEG2VIDEO, AV_CODEC_ID_MPEG4,
    AV_CODEC_ID_DVVIDEO, AV_CODEC_ID_FLV1, AV_CODEC_ID_VP6,        AV_CODEC_ID_VP6F,       AV_CODEC_ID_VP6A};
constexpr std::int64_t mostFramePixels = 36'000'000; // 8K has 33 million
constexpr int mostPackets = 400;

struct CloseDecoder {
    void operator()(AVCodecContext* decoder) const { avcodec_free_context(&decoder); }
};
struct FreePacket {
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};
using Decoder = std::unique_ptr<AVCodecContext, CloseDecoder>;
using Packet = std::unique_ptr<AVPacket, FreePacket>;

int giveNoRoom(AVCodecContext* /*decoder*/, AVFrame* /*frame*/, int /*flags*/) {
    return AVERROR(ENOMEM);
}

/// These decoders forget the size when they get no memory for a frame. Their frames are small.
bool decodesForItsSize(const AVCodec& codec) {
    return codec.id == AV_CODEC_ID_VP6 || codec.id == AV_CODEC_ID_VP6F || codec.id == AV_CODEC_ID_VP6A;
}

Decoder openDecoder(const AVStream& stream) {
    if (std::ranges::find(sizedCodecs, stream.codecpar->codec_id) == sizedCodecs.end()) {
        return nullptr;
    }
    const AVCodec* const codec = avcodec_find_decoder(stream.codecpar->codec_id);
    Decoder decoder(codec != nullptr ? avcodec_alloc_context3(codec) : nullptr);
    if (!decoder || avcodec_parameters_to_context(decoder.get(), stream.codecpar) < 0) {
        return nullptr;
    }
    decoder->width = decoder->height = 0; // until the stream tells
    if (!decodesForItsSize(*codec)) {
        decoder->get_buffer2 = giveNoRoom;
    }
    decoder->max_pixels = mostFramePixels;
    decoder->thread_count = 1;
    return avcodec_open2(decoder.get(), codec, nullptr) >= 0 ? std::move(decoder) : nullptr;
}

MovieVideoTrack trackOf(int width, int height, AVRational aspect) {
    MovieVideoTrack track{static_cast<double>(width), static_cast<double>(height)};
    if (aspect.num > 0 && aspect.den > 0) {
        track.naturalWidth *= av_q2d(aspect);
    }
    return track;
}

/// Gives a decoder the first packets of a stream until it has seen a header.
std::optional<MovieVideoTrack> sizeInStream(AVFormatContext& movie, const AVStream& stream) {
    const Decoder decoder = openDecoder(stream);
    const Packet packet(av_packet_alloc());
    if (!decoder || !packet) {
        return std::nullopt;
    }
    for (int i = 0; i < mostPackets && av_read_frame(&movie, packet.get()) >= 0; ++i) {
        if (packet->stream_index == stream.index) {
            avcodec_send_packet(decoder.get(), packet.get()); // fails, because it gets no memory
        }
        av_packet_unref(packet.get());
        if (decoder->width > 0 && decoder->height > 0) {
            const AVRational aspect = stream.sample_aspect_ratio.num > 0 ? stream.sample_aspect_ratio
                                                                         : decoder->sample_aspect_ratio;
            return trackOf(decoder->width, decoder->height, aspect);
        }
    }
    return std::nullopt;
}

bool isMovingPicture(const AVStream& stream) {
    return stream.codecpar->codec_type == AVMEDIA_TYPE_VIDEO &&
           (stream.disposition & AV_DISPOSITION_ATTACHED_PIC) == 0;
}

/// The first track of moving pictures.
std::optional<MovieVideoTrack> videoTrack(AVFormatContext& movie) {
    const std::span<AVStream* const> streams(movie.streams, movie.nb_streams);
    const auto found =
        std::ranges::find_if(streams, [](const AVStream* stream) { return isMovingPicture(*stream); });
    if (found == streams.end()) {
        return std::nullopt;
    }
    const AVStream& stream = **found;
    if (const auto size = sizeInStream(movie, stream)) {
        return size;
    }
    const AVCodecParameters& told = *stream.codecpar;
    return trackOf(told.width, told.height,
                   stream.sample_aspect_ratio.num > 0 ? stream.sample_aspect_ratio
                                                      : told.sample_aspect_ratio);
}

} // namespace

std::optional<MovieProperties> readOtherMovie(BoundedFile& file, ForeignContainer container) {
    constexpr const char* noCodec = "none"; // no decoder may run while the streams are examined
    const std::unique_ptr<LibavMovie> movie =
        LibavMovie::open(file, readers.at(static_cast<std::size_t>(container)), noCodec);
    if (!movie) {
        return std::nullopt;
    }
    AVFormatContext& context = movie->context();
    avformat_find_stream_info(&context, nullptr); // after a failure the known facts remain
    MovieProperties properties;
    if (context.duration != AV_NOPTS_VALUE && context.duration > 0) {
        properties.durationSeconds = static_cast<double>(context.duration) / AV_TIME_BASE;
    }
    properties.videoTrack = videoTrack(context);
    return properties;
}

} // namespace lumeo
