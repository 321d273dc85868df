#include "thumbnailer/MovieFrame.h"

#include "mediahelper/LibavMovie.h"
#include "thumbnailer/FrameImage.h"

#include <memory>
#include <optional>
#include <span>
#include <string_view>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/mem.h>
}

namespace lumeo {
namespace {

constexpr double frameTime = 0.5; // seconds
constexpr int mostPackets = 4'000;
constexpr int threads = 2;
constexpr double fluentFrameRate = 20;
constexpr std::int64_t mostFramePixels = 36'000'000; // 8K has 33 million
/// What is decoded of one movie: half a second of 4K, three frames of 8K. A file of a few bytes a frame could
/// otherwise keep the processor busy for as long as it has packets.
constexpr std::int64_t mostDecodedPixels = 100'000'000;

/// No playlists, because they name other files, and no readers of texts or devices.
constexpr const char* formats = "mov,mp4,matroska,webm,avi,asf,flv,mpeg,mpegts,mpegvideo,dv,mxf,ogg,rm,wtv,"
                                "j2k_pipe,jpegxl_pipe,psd_pipe,exr_pipe,sgi_pipe,qdraw_pipe";

constexpr const char* codecs = "h264,hevc,mpeg4,msmpeg4,msmpeg4v1,msmpeg4v2,h263,mpeg1video,mpeg2video,mjpeg,"
                               "mjpegb,vp6,vp6a,vp6f,vp8,vp9,"
                               "libdav1d,libaom-av1,prores,dnxhd,dvvideo,flv,wmv1,wmv2,wmv3,vc1,svq1,svq3,"
                               "rpza,smc,cinepak,indeo3,indeo4,indeo5,"
                               "qtrle,rawvideo,theora,rv10,rv20,rv30,rv40,cfhd,ffv1,huffyuv,png,"
                               "jpeg2000,libopenjpeg,libjxl,psd,exr,sgi,qdraw";

struct CloseDecoder {
    void operator()(AVCodecContext* decoder) const { avcodec_free_context(&decoder); }
};
struct FreePacket {
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};
struct FreeFrame {
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
};
using Decoder = std::unique_ptr<AVCodecContext, CloseDecoder>;
using Packet = std::unique_ptr<AVPacket, FreePacket>;
using Frame = std::unique_ptr<AVFrame, FreeFrame>;

Decoder openDecoder(const AVStream& stream) {
    const AVCodec* const codec = avcodec_find_decoder(stream.codecpar->codec_id);
    if (codec == nullptr) {
        return nullptr;
    }
    Decoder decoder(avcodec_alloc_context3(codec));
    if (!decoder || avcodec_parameters_to_context(decoder.get(), stream.codecpar) < 0) {
        return nullptr;
    }
    decoder->codec_whitelist = av_strdup(codecs);
    decoder->max_pixels = mostFramePixels;
    decoder->thread_count = threads;
    decoder->skip_loop_filter = AVDISCARD_ALL; // its effect is not visible at this size
    if (av_q2d(stream.avg_frame_rate) >= fluentFrameRate) {
        decoder->skip_frame = AVDISCARD_NONREF; // the frame beside the wanted one is good enough
    }
    return avcodec_open2(decoder.get(), codec, nullptr) >= 0 ? std::move(decoder) : nullptr;
}

/// Goes through a movie's frames to the one that is shown at `frameTime`.
class FrameSearch {
public:
    FrameSearch(AVFormatContext& movie, AVStream& stream, const BoundedFile& file)
        : movie_(movie), stream_(stream), file_(file), decoder_(openDecoder(stream)) {}

    /// Null when the movie ends earlier.
    Frame find() {
        const Packet packet(av_packet_alloc());
        if (!decoder_ || !packet || !next_) {
            return nullptr;
        }
        goNear();
        for (int i = 0;
             i < mostPackets && !isFound_ && !isSpent() && av_read_frame(&movie_, packet.get()) >= 0; ++i) {
            if (packet->stream_index == stream_.index &&
                avcodec_send_packet(decoder_.get(), packet.get()) >= 0) {
                decodedPixels_ += std::int64_t{decoder_->width} * decoder_->height;
                takeFrames();
            }
            av_packet_unref(packet.get());
        }
        if (!isFound_ && !file_.isSpent()) {
            avcodec_send_packet(decoder_.get(), nullptr);
            takeFrames();
        }
        return isFound_ || isSpent() || lasts() ? std::move(shown_) : nullptr;
    }

private:
    /// Seeks to the last key frame before `frameTime`, if the container has an index.
    void goNear() {
        if (avformat_index_get_entries_count(&stream_) > 0) {
            const auto offset = static_cast<std::int64_t>(frameTime / av_q2d(stream_.time_base));
            av_seek_frame(&movie_, stream_.index, start() + offset, AVSEEK_FLAG_BACKWARD);
        }
    }

    void takeFrames() {
        while (!isFound_ && avcodec_receive_frame(decoder_.get(), next_.get()) >= 0) {
            const std::optional<double> time = timeOf(*next_);
            isFound_ = shown_ && time && *time > frameTime;
            if (!isFound_) {
                shown_ = std::move(next_);
                shownTime_ = time.value_or(shownTime_);
                isFound_ = shownTime_ >= frameTime;
                next_.reset(av_frame_alloc());
            }
        }
    }

    /// True when the last available frame is still shown at `frameTime`.
    [[nodiscard]] bool lasts() const {
        if (!shown_) {
            return false;
        }
        const bool isSinglePicture = std::string_view(movie_.iformat->name).ends_with("_pipe") ||
                                     (stream_.disposition & AV_DISPOSITION_ATTACHED_PIC) != 0;
        return isSinglePicture || (movie_.duration != AV_NOPTS_VALUE &&
                                   static_cast<double>(movie_.duration) / AV_TIME_BASE >= frameTime);
    }

    /// Then the frame nearest to the wanted one has to do.
    [[nodiscard]] bool isSpent() const { return decodedPixels_ >= mostDecodedPixels; }

    [[nodiscard]] std::int64_t start() const {
        return stream_.start_time != AV_NOPTS_VALUE ? stream_.start_time : 0;
    }

    /// Seconds from the start.
    [[nodiscard]] std::optional<double> timeOf(const AVFrame& frame) const {
        if (frame.best_effort_timestamp == AV_NOPTS_VALUE) {
            return std::nullopt;
        }
        const auto ticks = static_cast<double>(frame.best_effort_timestamp) - static_cast<double>(start());
        return ticks * av_q2d(stream_.time_base);
    }

    AVFormatContext& movie_;
    AVStream& stream_;
    const BoundedFile& file_;
    Decoder decoder_;
    Frame next_{av_frame_alloc()};
    Frame shown_; ///< the latest frame so far
    double shownTime_ = 0;
    std::int64_t decodedPixels_ = 0;
    bool isFound_ = false;
};

/// The first video track. Without one, the cover picture of a sound file.
AVStream* pictureStream(AVFormatContext& movie) {
    const int index = av_find_best_stream(&movie, AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
    const std::span<AVStream* const> streams(movie.streams, movie.nb_streams);
    for (AVStream* const stream : streams) {
        stream->discard = stream->index == index ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
    }
    return index >= 0 ? streams[static_cast<std::size_t>(index)] : nullptr;
}

} // namespace

void prepareMovieFrames() {
    constexpr std::size_t largestAllocation = 160 * 1024 * 1024; // a frame of 8K, four bytes a pixel
    av_max_alloc(largestAllocation);
}

QImage movieFrame(BoundedFile& file, QSize pixels) {
    const std::unique_ptr<LibavMovie> movie = LibavMovie::open(file, formats, codecs);
    if (!movie) {
        return {};
    }
    AVFormatContext& context = movie->context();
    avformat_find_stream_info(&context, nullptr); // after a failure the facts of the header remain
    AVStream* const stream = pictureStream(context);
    if (stream == nullptr) {
        return {};
    }
    const Frame frame = FrameSearch(context, *stream, file).find();
    return frame ? frameImage(*frame, *stream, pixels) : QImage();
}

} // namespace lumeo
