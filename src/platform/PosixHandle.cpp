#include "platform/PosixHandle.h"

#include <array>
#include <climits>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace lumeo {
namespace {

/// Damaged inodes hold times that an Instant cannot hold.
constexpr std::int64_t secondsLimit = 4'600'000'000'000;

std::optional<Instant> instantFrom(const statx_timestamp& time, bool known) {
    if (!known || time.tv_sec > secondsLimit || time.tv_sec < -secondsLimit) {
        return std::nullopt;
    }
    return Instant(std::chrono::seconds(time.tv_sec) + std::chrono::microseconds(time.tv_nsec / 1000));
}

FileKind kindFrom(unsigned mode) {
    if (S_ISREG(mode)) {
        return FileKind::regular;
    }
    if (S_ISDIR(mode)) {
        return FileKind::folder;
    }
    return S_ISLNK(mode) ? FileKind::symbolicLink : FileKind::other;
}

} // namespace

Descriptor::~Descriptor() {
    if (isOpen()) {
        const int kept = errno;
        close(number_);
        errno = kept;
    }
}

ReachedPath::ReachedPath(const FilePath& path) {
    if (path.bytes().find('\0') != std::string::npos) {
        errno = EINVAL; // the system would read the part before it as the name of another file
        return;
    }
    const std::string& bytes = path.bytes();
    std::size_t start = 0;
    while (bytes.size() - start >= PATH_MAX) {
        const std::size_t slash = bytes.rfind('/', start + PATH_MAX - 2);
        if (slash == std::string::npos || slash < start) {
            errno = ENAMETOOLONG;
            return;
        }
        // The piece keeps its slash, so that an absolute path stays absolute.
        std::array<char, PATH_MAX> piece{};
        std::memcpy(piece.data(), bytes.data() + start, slash + 1 - start);
        const int from = folder();
        Descriptor next(
            retrying([&] { return openat(from, piece.data(), O_PATH | O_DIRECTORY | O_CLOEXEC); }));
        if (!next.isOpen()) {
            return;
        }
        folder_ = std::move(next);
        start = bytes.find_first_not_of('/', slash);
        if (start == std::string::npos) {
            name_ = ".";
            return;
        }
    }
    name_ = bytes.c_str() + start;
}

int ReachedPath::folder() const noexcept {
    return folder_.isOpen() ? folder_.get() : AT_FDCWD;
}

int openWithoutTrace(int folder, const char* name, int flags) {
    flags |= O_RDONLY | O_CLOEXEC;
    const int number = retrying([&] { return openat(folder, name, flags | O_NOATIME); });
    if (number >= 0 || errno != EPERM) {
        return number;
    }
    return retrying([&] { return openat(folder, name, flags); }); // the file belongs to another user
}

FileResult<FileStatus> statusAt(int folder, const char* name, int flags, const FilePath& path) {
    constexpr unsigned wanted = STATX_TYPE | STATX_SIZE | STATX_INO | STATX_MTIME | STATX_CTIME | STATX_BTIME;
    struct statx told {};
    if (retrying([&] { return statx(folder, name, flags, wanted, &told); }) != 0) {
        return FileError{FileAction::examine, path, errno};
    }
    FileStatus status;
    status.kind = kindFrom(told.stx_mode);
    status.size = static_cast<std::int64_t>(told.stx_size);
    status.creationDate = instantFrom(told.stx_btime, (told.stx_mask & STATX_BTIME) != 0);
    status.modificationDate = instantFrom(told.stx_mtime, (told.stx_mask & STATX_MTIME) != 0);
    status.changeDate = instantFrom(told.stx_ctime, (told.stx_mask & STATX_CTIME) != 0);
    status.identity = {makedev(told.stx_dev_major, told.stx_dev_minor), told.stx_ino};
    return status;
}

} // namespace lumeo
