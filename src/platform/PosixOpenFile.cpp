#include "platform/PosixOpenFile.h"

#include <csignal>
#include <mutex>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace lumeo {
namespace {

FileResult<std::size_t> readFrom(const Descriptor& descriptor, std::int64_t offset,
                                 std::span<std::byte> buffer, const FilePath& path) {
    const ssize_t count =
        retrying([&] { return pread(descriptor.get(), buffer.data(), buffer.size(), offset); });
    if (count < 0) {
        return FileError{FileAction::read, path, errno};
    }
    return static_cast<std::size_t>(count);
}

/// If somebody opens the file for writing while we hold the lease, the system sends us this signal. By
/// default it would end the process.
void ignoreBrokenLeases() {
    static std::once_flag once;
    std::call_once(once, [] {
        struct sigaction now {};
        if (sigaction(SIGIO, nullptr, &now) == 0 && now.sa_handler == SIG_DFL) {
            static_cast<void>(std::signal(SIGIO, SIG_IGN));
        }
    });
}

} // namespace

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
    return readFrom(descriptor_, offset, buffer, path_);
}

FileResult<FileStatus> PosixReadableFile::status() {
    return statusAt(descriptor_.get(), "", AT_EMPTY_PATH, path_);
}

void PosixReadableFile::evict() {
    posix_fadvise(descriptor_.get(), 0, 0, POSIX_FADV_DONTNEED);
    // The device begins at once, while the caller is still busy with the file before.
    constexpr std::int64_t firstPiece = std::int64_t{8} << 20;
    posix_fadvise(descriptor_.get(), 0, firstPiece, POSIX_FADV_WILLNEED);
}

bool PosixReadableFile::isOpenForWriting() {
    ignoreBrokenLeases();
    // The system grants a read lease only while nobody has the file open for writing. It is given back at
    // once, because holding it would block others from opening the file.
    if (fcntl(descriptor_.get(), F_SETLEASE, F_RDLCK) != 0) {
        return errno == EAGAIN;
    }
    fcntl(descriptor_.get(), F_SETLEASE, F_UNLCK);
    return false;
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

FileResult<std::size_t> PosixWritableFile::readAt(std::int64_t offset, std::span<std::byte> buffer) {
    return readFrom(descriptor_, offset, buffer, path_);
}

FileResult<FileStatus> PosixWritableFile::status() {
    return statusAt(descriptor_.get(), "", AT_EMPTY_PATH, path_);
}

FileResult<void> PosixWritableFile::lock() {
    return takeLock(descriptor_, path_);
}

void PosixWritableFile::beginWriteBack() {
    // Without this, the kernel would only start writing when the flush waits for it. Now the device works
    // while the program reads and hashes, and memory does not fill with unwritten pages.
    constexpr std::int64_t stride = std::int64_t{8} << 20;
    if (written_ - writeBackBegun_ >= stride) {
        sync_file_range(descriptor_.get(), writeBackBegun_, written_ - writeBackBegun_,
                        SYNC_FILE_RANGE_WRITE);
        writeBackBegun_ = written_;
    }
}

FileResult<void> PosixWritableFile::flush() {
    // fdatasync() flushes content and size, which a later read needs. fsync() would also wait for the times.
    if (retrying([&] { return fdatasync(descriptor_.get()); }) != 0) {
        return FileError{FileAction::flush, path_, errno};
    }
    return {};
}

void PosixWritableFile::evict() {
    posix_fadvise(descriptor_.get(), 0, 0, POSIX_FADV_DONTNEED);
    posix_fadvise(descriptor_.get(), 0, 0, POSIX_FADV_SEQUENTIAL); // it is read back from its start
}

FileResult<void> PosixWritableFile::close() {
    // The descriptor is gone even if the call was interrupted. A second call could close another file.
    if (::close(descriptor_.release()) != 0 && errno != EINTR) {
        return FileError{FileAction::write, path_, errno};
    }
    return {};
}

PosixFileLock::PosixFileLock(Descriptor descriptor, FilePath path)
    : descriptor_(std::move(descriptor)), path_(std::move(path)) {}

FileResult<FileStatus> PosixFileLock::status() {
    return statusAt(descriptor_.get(), "", AT_EMPTY_PATH, path_);
}

FileResult<void> takeLock(const Descriptor& descriptor, const FilePath& path) {
    if (retrying([&] { return flock(descriptor.get(), LOCK_EX | LOCK_NB); }) != 0) {
        return FileError{FileAction::lock, path, errno};
    }
    return {};
}

} // namespace lumeo
