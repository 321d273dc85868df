#include "mediahelper/LibavMovie.h"

#include <mutex>

extern "C" {
#include <libavformat/avformat.h>
}

namespace lumeo {
namespace {

constexpr int bufferSize = 32 * 1024;

int refuseToOpen(AVFormatContext* /*movie*/, AVIOContext** /*io*/, const char* /*url*/, int /*flags*/,
                 AVDictionary** /*options*/) {
    return AVERROR(EACCES);
}

} // namespace

std::unique_ptr<LibavMovie> LibavMovie::open(BoundedFile& file, const char* formats, const char* codecs) {
    static std::once_flag silenced;
    std::call_once(silenced, [] { av_log_set_level(AV_LOG_QUIET); });
    std::unique_ptr<LibavMovie> movie(new LibavMovie(file));
    return movie->openInput(formats, codecs) ? std::move(movie) : nullptr;
}

LibavMovie::~LibavMovie() {
    avformat_close_input(&movie_);
    if (io_ != nullptr) {
        av_freep(static_cast<void*>(&io_->buffer));
        avio_context_free(&io_);
    }
}

bool LibavMovie::openInput(const char* formats, const char* codecs) {
    auto* const buffer = static_cast<unsigned char*>(av_malloc(bufferSize));
    if (buffer == nullptr) {
        return false;
    }
    io_ = avio_alloc_context(buffer, bufferSize, 0, this, readPacket, nullptr, seek);
    if (io_ == nullptr) {
        av_free(buffer);
        return false;
    }
    movie_ = avformat_alloc_context();
    if (movie_ == nullptr) {
        return false;
    }
    movie_->pb = io_;
    movie_->flags |= AVFMT_FLAG_CUSTOM_IO;
    movie_->io_open = refuseToOpen;
    movie_->interrupt_callback = {isInterrupted, this};
    movie_->format_probesize = 256 * 1024;
    movie_->probesize = 1024 * 1024;
    movie_->max_analyze_duration = AV_TIME_BASE / 2;
    movie_->max_streams = 64;
    movie_->fps_probe_size = 0;
    movie_->format_whitelist = av_strdup(formats);
    movie_->protocol_whitelist = av_strdup("none");
    movie_->codec_whitelist = av_strdup(codecs);
    // On failure this call frees the context.
    return avformat_open_input(&movie_, nullptr, nullptr, nullptr) >= 0;
}

int LibavMovie::readPacket(void* opaque, std::uint8_t* buffer, int count) {
    auto& self = *static_cast<LibavMovie*>(opaque);
    const std::span<std::uint8_t> space(buffer, static_cast<std::size_t>(count));
    const auto read = self.file_.readAt(self.position_, std::as_writable_bytes(space));
    if (!read) {
        return AVERROR(EIO);
    }
    self.position_ += static_cast<std::int64_t>(*read);
    return *read == 0 ? AVERROR_EOF : static_cast<int>(*read);
}

std::int64_t LibavMovie::seek(void* opaque, std::int64_t offset, int whence) {
    auto& self = *static_cast<LibavMovie*>(opaque);
    switch (whence & ~AVSEEK_FORCE) {
    case AVSEEK_SIZE:
        return self.file_.size();
    case SEEK_SET:
        break;
    case SEEK_CUR:
        offset += self.position_;
        break;
    case SEEK_END:
        offset += self.file_.size();
        break;
    default:
        return AVERROR(EINVAL);
    }
    if (offset < 0) {
        return AVERROR(EINVAL);
    }
    return self.position_ = offset;
}

int LibavMovie::isInterrupted(void* opaque) {
    return static_cast<LibavMovie*>(opaque)->file_.isSpent() ? 1 : 0;
}

} // namespace lumeo
