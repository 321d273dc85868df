#pragma once

#include "media/BoundedFile.h"

#include <memory>

struct AVFormatContext;
struct AVIOContext;

namespace lumeo {

/// A container that libavformat has opened. The library reads this one file within its limits and can never
/// open another. Used by one thread.
class LibavMovie {
public:
    /// Absent when the file is none of `formats`. Both lists are libav's names, separated by commas: the
    /// demuxers that may be tried, and the decoders that may look for what the header does not tell.
    static std::unique_ptr<LibavMovie> open(BoundedFile& file, const char* formats, const char* codecs);
    ~LibavMovie();
    LibavMovie(const LibavMovie&) = delete;
    LibavMovie& operator=(const LibavMovie&) = delete;

    [[nodiscard]] AVFormatContext& context() const { return *movie_; }

private:
    explicit LibavMovie(BoundedFile& file) : file_(file) {}

    bool openInput(const char* formats, const char* codecs);
    static int readPacket(void* opaque, std::uint8_t* buffer, int count);
    static std::int64_t seek(void* opaque, std::int64_t offset, int whence);
    static int isInterrupted(void* opaque);

    BoundedFile& file_;
    std::int64_t position_ = 0;
    AVIOContext* io_ = nullptr;
    AVFormatContext* movie_ = nullptr;
};

} // namespace lumeo
