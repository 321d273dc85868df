#include "media/BoundedFile.h"

#include <ctime>

namespace lumeo {

BoundedFile::BoundedFile(ReadableFile& file, ReadLimits limits)
    : file_(file),
      limits_(limits),
      workStart_(timeOf(CLOCK_THREAD_CPUTIME_ID)),
      waitStart_(timeOf(CLOCK_MONOTONIC)) {
    if (const FileResult<FileStatus> status = file.status()) {
        size_ = status->size;
    }
}

FileResult<std::size_t> BoundedFile::readAt(std::int64_t offset, std::span<std::byte> buffer) {
    if (isSpent()) {
        return std::size_t{0};
    }
    FileResult<std::size_t> read = file_.readAt(offset, buffer);
    if (read) {
        bytesRead_ += static_cast<std::int64_t>(*read);
    }
    return read;
}

bool BoundedFile::isSpent() const {
    return bytesRead_ >= limits_.bytes || timeOf(CLOCK_THREAD_CPUTIME_ID) - workStart_ >= limits_.work ||
           timeOf(CLOCK_MONOTONIC) - waitStart_ >= limits_.wait;
}

std::chrono::nanoseconds BoundedFile::timeOf(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

} // namespace lumeo
