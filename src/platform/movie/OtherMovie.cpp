#include "platform/FileSystem.h"
#include "platform/movie/ContainerReaders.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <memory>
#include <mutex>
#include <span>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/mathematics.h>
}

namespace lumeo {
namespace {

constexpr int bufferSize = 32 * 1024;
constexpr std::int64_t mostBytesRead = 8 * 1024 * 1024;
constexpr std::chrono::nanoseconds longestWork = std::chrono::milliseconds(500); // of this thread's own
constexpr std::chrono::nanoseconds longestWait = std::chrono::seconds(5);        // for a slow disk, all told

/// Containers that carry media themselves. Playlists, which name other files, and texts are left out.
constexpr const char* knownContainers = "mpeg,mpegts,mpegvideo,dv,flv,mxf,ogg,rm,wtv,"
                                        "mp3,wav,w64,aac,ac3,flac,aiff,amr,caf,ape,wv,au";

/// Whose decoders may look for the size of the pictures; sound is never decoded.
constexpr const char* knownCodecs = "h264,hevc,mpeg1video,mpeg2video,mpeg4,dvvideo,flv,vp6,vp6f,vp6a";

/// The file as libavformat reads it: through the FileSystem, with an end to bytes and time.
class LibavInput {
public:
    explicit LibavInput(ReadableFile& file) : file_(file) {
        if (const FileResult<FileStatus> status = file.status()) {
            size_ = status->size;
        }
    }

    static int readPacket(void* opaque, std::uint8_t* buffer, int count) {
        auto& self = *static_cast<LibavInput*>(opaque);
        if (self.isSpent()) {
            return AVERROR_EOF;
        }
        const std::span<std::uint8_t> space(buffer, static_cast<std::size_t>(count));
        const auto read = self.file_.readAt(self.position_, std::as_writable_bytes(space));
        if (!read) {
            return AVERROR(EIO);
        }
        self.position_ += static_cast<std::int64_t>(*read);
        self.bytesRead_ += static_cast<std::int64_t>(*read);
        return *read == 0 ? AVERROR_EOF : static_cast<int>(*read);
    }

    static std::int64_t seek(void* opaque, std::int64_t offset, int whence) {
        auto& self = *static_cast<LibavInput*>(opaque);
        switch (whence & ~AVSEEK_FORCE) {
        case AVSEEK_SIZE:
            return self.size_;
        case SEEK_SET:
            break;
        case SEEK_CUR:
            offset += self.position_;
            break;
        case SEEK_END:
            offset += self.size_;
            break;
        default:
            return AVERROR(EINVAL);
        }
        if (offset < 0) {
            return AVERROR(EINVAL);
        }
        return self.position_ = offset;
    }

    static int isInterrupted(void* opaque) { return static_cast<LibavInput*>(opaque)->isSpent() ? 1 : 0; }

private:
    [[nodiscard]] bool isSpent() const {
        return bytesRead_ >= mostBytesRead || timeOf(CLOCK_THREAD_CPUTIME_ID) - workStart_ >= longestWork ||
               timeOf(CLOCK_MONOTONIC) - waitStart_ >= longestWait;
    }

    static std::chrono::nanoseconds timeOf(clockid_t clock) {
        timespec time{};
        clock_gettime(clock, &time);
        return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
    }

    ReadableFile& file_;
    std::int64_t size_ = 0;
    std::int64_t position_ = 0;
    std::int64_t bytesRead_ = 0;
    std::chrono::nanoseconds workStart_ = timeOf(CLOCK_THREAD_CPUTIME_ID);
    std::chrono::nanoseconds waitStart_ = timeOf(CLOCK_MONOTONIC);
};

struct CloseIo {
    void operator()(AVIOContext* io) const {
        av_freep(static_cast<void*>(&io->buffer));
        avio_context_free(&io);
    }
};

struct CloseMovie {
    void operator()(AVFormatContext* movie) const { avformat_close_input(&movie); }
};

using Movie = std::unique_ptr<AVFormatContext, CloseMovie>;

int refuseToOpen(AVFormatContext* /*movie*/, AVIOContext** /*io*/, const char* /*url*/, int /*flags*/,
                 AVDictionary** /*options*/) {
    return AVERROR(EACCES);
}

Movie openMovie(LibavInput& input, AVIOContext& io) {
    AVFormatContext* movie = avformat_alloc_context();
    if (movie == nullptr) {
        return nullptr;
    }
    movie->pb = &io;
    movie->flags |= AVFMT_FLAG_CUSTOM_IO;
    movie->io_open = refuseToOpen; // whatever a file names, no other is ever touched
    movie->interrupt_callback = {LibavInput::isInterrupted, &input};
    movie->format_probesize = 256 * 1024;
    movie->probesize = 1024 * 1024;
    movie->max_analyze_duration = AV_TIME_BASE / 2;
    movie->max_streams = 64;
    movie->fps_probe_size = 0;
    movie->format_whitelist = av_strdup(knownContainers);
    movie->protocol_whitelist = av_strdup("none");
    movie->codec_whitelist = av_strdup(knownCodecs);
    // On failure the context is freed for us.
    if (avformat_open_input(&movie, nullptr, nullptr, nullptr) < 0) {
        return nullptr;
    }
    return Movie(movie);
}

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
    static std::once_flag silenced;
    std::call_once(silenced, [] { av_log_set_level(AV_LOG_QUIET); });
    LibavInput input(file);
    auto* buffer = static_cast<unsigned char*>(av_malloc(bufferSize));
    if (buffer == nullptr) {
        return std::nullopt;
    }
    const std::unique_ptr<AVIOContext, CloseIo> io(
        avio_alloc_context(buffer, bufferSize, 0, &input, LibavInput::readPacket, nullptr, LibavInput::seek));
    if (!io) {
        av_free(buffer);
        return std::nullopt;
    }
    const Movie movie = openMovie(input, *io);
    if (!movie) {
        return std::nullopt;
    }
    // A failure leaves what is known already.
    avformat_find_stream_info(movie.get(), nullptr);
    return propertiesOf(*movie);
}

} // namespace lumeo
