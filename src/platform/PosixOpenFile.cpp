#include "platform/PosixOpenFile.h"

#include <fcntl.h>
#include <unistd.h>

namespace lumeo {

PosixReadableFile::PosixReadableFile(Descriptor descriptor, FilePath path)
    : descriptor_(std::move(descriptor)), path_(std::move(path)) {}

FileResult<std::size_t> PosixReadableFile::read(std::span<std::byte> buffer) {
    advise(POSIX_FADV_SEQUENTIAL);
    const ssize_t count = retrying([&] { return ::read(descriptor_.get(), buffer.data(), buffer.size()); });
    if (count < 0) {
        return FileError{FileAction::read, path_, errno};
    }
    return static_cast<std::size_t>(count);
}

FileResult<std::size_t> PosixReadableFile::readAt(std::int64_t offset, std::span<std::byte> buffer) {
    advise(POSIX_FADV_RANDOM);
    const ssize_t count =
        retrying([&] { return pread(descriptor_.get(), buffer.data(), buffer.size(), offset); });
    if (count < 0) {
        return FileError{FileAction::read, path_, errno};
    }
    return static_cast<std::size_t>(count);
}

FileResult<FileStatus> PosixReadableFile::status() {
    return statusAt(descriptor_.get(), "", AT_EMPTY_PATH, path_);
}

void PosixReadableFile::advise(int advice) {
    if (advice != advice_) {
        posix_fadvise(descriptor_.get(), 0, 0, advice);
        advice_ = advice;
    }
}

PosixWritableFile::PosixWritableFile(Descriptor descriptor, FilePath path)
    : descriptor_(std::move(descriptor)), path_(std::move(path)) {}

FileResult<void> PosixWritableFile::write(std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const ssize_t count =
            retrying([&] { return ::write(descriptor_.get(), bytes.data(), bytes.size()); });
        if (count < 0) {
            return FileError{FileAction::write, path_, errno};
        }
        bytes = bytes.subspan(static_cast<std::size_t>(count));
        written_ += count;
    }
    beginWriteBack();
    return {};
}

void PosixWritableFile::beginWriteBack() {
    // Left alone, the kernel begins when the flush waits for it. So the device works while the program
    // reads and hashes, and memory does not fill with unwritten pages.
    constexpr std::int64_t stride = std::int64_t{8} << 20;
    if (written_ - writeBackBegun_ >= stride) {
        sync_file_range(descriptor_.get(), writeBackBegun_, written_ - writeBackBegun_,
                        SYNC_FILE_RANGE_WRITE);
        writeBackBegun_ = written_;
    }
}

FileResult<void> PosixWritableFile::flush() {
    // Content and size, which is what a later read needs; fsync() would wait for the times as well.
    if (retrying([&] { return fdatasync(descriptor_.get()); }) != 0) {
        return FileError{FileAction::flush, path_, errno};
    }
    return {};
}

void PosixWritableFile::evict() {
    posix_fadvise(descriptor_.get(), 0, 0, POSIX_FADV_DONTNEED);
}

FileResult<void> PosixWritableFile::close() {
    // Interrupted or not, the descriptor is gone: calling again could close somebody else's.
    if (::close(descriptor_.release()) != 0 && errno != EINTR) {
        return FileError{FileAction::write, path_, errno};
    }
    return {};
}

} // namespace lumeo
