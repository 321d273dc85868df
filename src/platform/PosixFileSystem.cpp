#include "platform/PosixFileSystem.h"

#include "platform/PosixDirectoryEnumerator.h"
#include "platform/PosixOpenFile.h"
#include "platform/volumes/DiskTable.h"

#include <algorithm>
#include <climits>
#include <limits>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace lumeo {
namespace {

FileResult<FileStatus> statusOf(const FilePath& path, int flags) {
    const ReachedPath reached(path);
    if (!reached.isReached()) {
        return FileError{FileAction::examine, path, errno};
    }
    return statusAt(reached.folder(), reached.name(), flags, path);
}

FileResult<void> outcome(int result, FileAction action, const FilePath& path) {
    if (result != 0) {
        return FileError{action, path, errno};
    }
    return {};
}

template<class Call>
int callAtBoth(const FilePath& from, const FilePath& to, Call call) {
    return callAt(from, [&](int fromFolder, const char* fromName) {
        return callAt(to, [&](int toFolder, const char* toName) {
            return call(fromFolder, fromName, toFolder, toName);
        });
    });
}

int unlinkPath(const FilePath& path) {
    return callAt(path, [](int folder, const char* name) { return unlinkat(folder, name, 0); });
}

/// For when the new name was made but the old one could not be removed. Removes the new name, but only if the
/// old name is known to lead to the same file: on a network, a removal that reported a failure may still have
/// happened.
void takeBackLink(const FilePath& from, const FilePath& to) {
    const FileResult<FileStatus> old = statusOf(from, AT_SYMLINK_NOFOLLOW | AT_STATX_FORCE_SYNC);
    const FileResult<FileStatus> made = statusOf(to, AT_SYMLINK_NOFOLLOW);
    if (old && made && old->identity == made->identity) {
        unlinkPath(to);
    }
}

/// For file systems that cannot rename without replacing. Making a link never replaces anything either.
int renameByLink(const FilePath& from, const FilePath& to) {
    const int linked =
        callAtBoth(from, to, [](int fromFolder, const char* fromName, int toFolder, const char* toName) {
            return linkat(fromFolder, fromName, toFolder, toName, 0);
        });
    if (linked != 0) {
        return linked;
    }
    if (unlinkPath(from) != 0 && errno != ENOENT) {
        const int reason = errno;
        takeBackLink(from, to);
        errno = reason;
        return -1;
    }
    return 0;
}

/// For file systems that have no links either. The only remaining way is to check first.
int renameAfterLooking(const FilePath& from, const FilePath& to) {
    const FileResult<FileStatus> taken = statusOf(to, AT_SYMLINK_NOFOLLOW);
    if (taken || taken.error().errnoValue != ENOENT) {
        errno = taken ? EEXIST : taken.error().errnoValue;
        return -1;
    }
    return callAtBoth(from, to, renameat);
}

bool isOneOf(int value, std::initializer_list<int> values) {
    return std::find(values.begin(), values.end(), value) != values.end();
}

/// `blocks` times `blockSize`, limited to what a signed number holds. Some network disks claim the largest
/// value.
std::int64_t byteCount(std::uint64_t blocks, std::uint64_t blockSize) {
    constexpr std::uint64_t most = std::numeric_limits<std::int64_t>::max();
    return static_cast<std::int64_t>(blockSize != 0 && blocks > most / blockSize ? most : blocks * blockSize);
}

} // namespace

FileResult<FileStatus> PosixFileSystem::status(const FilePath& path) const {
    return statusOf(path, AT_SYMLINK_NOFOLLOW);
}

FileResult<FileStatus> PosixFileSystem::targetStatus(const FilePath& path) const {
    return statusOf(path, 0);
}

FileResult<FilePath> PosixFileSystem::linkTarget(const FilePath& link) const {
    std::string target(PATH_MAX, '\0'); // the system never makes a link with a longer target
    const int length = callAt(link, [&](int folder, const char* name) {
        return static_cast<int>(readlinkat(folder, name, target.data(), target.size()));
    });
    if (length < 0) {
        return FileError{FileAction::examine, link, errno};
    }
    target.resize(static_cast<std::size_t>(length));
    return target.starts_with('/') ? FilePath(std::move(target)) : link.parent().appending(target);
}

FileResult<std::unique_ptr<DirectoryEnumerator>>
PosixFileSystem::enumerate(const FilePath& folder, std::function<void(const FileError&)> onError) const {
    return PosixDirectoryEnumerator::start(folder, std::move(onError));
}

FileResult<std::unique_ptr<ReadableFile>> PosixFileSystem::openForReading(const FilePath& path) const {
    // Without O_NONBLOCK, a pipe would block us until somebody writes to it.
    Descriptor descriptor(callAt(path, [](int folder, const char* name) {
        return openWithoutTrace(folder, name, O_NONBLOCK | O_NOCTTY);
    }));
    struct stat opened {};
    if (!descriptor.isOpen() || fstat(descriptor.get(), &opened) != 0) {
        return FileError{FileAction::open, path, errno};
    }
    if (!S_ISREG(opened.st_mode)) {
        return FileError{FileAction::open, path, S_ISDIR(opened.st_mode) ? EISDIR : ENOTSUP};
    }
    return std::unique_ptr<ReadableFile>(std::make_unique<PosixReadableFile>(std::move(descriptor), path));
}

FileResult<std::unique_ptr<WritableFile>> PosixFileSystem::createFile(const FilePath& path,
                                                                      FileAccess access) {
    const mode_t mode = access == FileAccess::ownerOnly ? 0600 : 0666;
    Descriptor descriptor(callAt(path, [mode](int folder, const char* name) {
        return openat(folder, name, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
    }));
    if (!descriptor.isOpen()) {
        return FileError{FileAction::create, path, errno};
    }
    return std::unique_ptr<WritableFile>(std::make_unique<PosixWritableFile>(std::move(descriptor), path));
}

FileResult<std::unique_ptr<WritableFile>> PosixFileSystem::openForAppending(const FilePath& path) {
    Descriptor descriptor(callAt(path, [](int folder, const char* name) {
        return openat(folder, name, O_RDWR | O_APPEND | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    }));
    struct stat opened {};
    if (!descriptor.isOpen() || fstat(descriptor.get(), &opened) != 0) {
        return FileError{FileAction::open, path, errno};
    }
    if (!S_ISREG(opened.st_mode)) {
        return FileError{FileAction::open, path, ENOTSUP};
    }
    return std::unique_ptr<WritableFile>(std::make_unique<PosixWritableFile>(std::move(descriptor), path));
}

FileResult<std::unique_ptr<FileLock>> PosixFileSystem::lock(const FilePath& path) {
    constexpr int flags = O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    // Network file systems give the lock only to a descriptor that can write. A folder cannot be opened in
    // this way.
    Descriptor descriptor(
        callAt(path, [](int folder, const char* name) { return openat(folder, name, O_RDWR | flags); }));
    if (!descriptor.isOpen() && errno == EISDIR) {
        descriptor = Descriptor(callAt(
            path, [](int folder, const char* name) { return openat(folder, name, O_RDONLY | flags); }));
    }
    if (!descriptor.isOpen()) {
        return FileError{FileAction::lock, path, errno};
    }
    if (const FileResult<void> taken = takeLock(descriptor, path); !taken) {
        return taken.error();
    }
    return std::unique_ptr<FileLock>(std::make_unique<PosixFileLock>(std::move(descriptor), path));
}

FileResult<std::vector<FilePath>> PosixFileSystem::createFolders(const FilePath& folder) {
    std::vector<FilePath> missing;
    for (FilePath at = folder;; at = at.parent()) {
        const FileResult<FileStatus> found = targetStatus(at);
        if (found && found->kind == FileKind::folder) {
            break;
        }
        if (found || found.error().errnoValue != ENOENT) {
            return FileError{FileAction::createFolder, at, found ? ENOTDIR : found.error().errnoValue};
        }
        missing.push_back(at);
        const FilePath above = at.parent();
        if (above.empty() || above == at) {
            break; // the first name of a relative path
        }
    }
    std::vector<FilePath> created;
    for (; !missing.empty(); missing.pop_back()) {
        const FilePath& next = missing.back();
        if (callAt(next, [](int at, const char* name) { return mkdirat(at, name, 0777); }) == 0) {
            created.push_back(next);
            continue;
        }
        const int reason = errno;
        const FileResult<FileStatus> found = targetStatus(next);
        if (reason != EEXIST || !found || found->kind != FileKind::folder) {
            for (; !created.empty(); created.pop_back()) {
                static_cast<void>(removeFolder(created.back()));
            }
            return FileError{FileAction::createFolder, next, reason};
        }
    }
    return created;
}

FileResult<void> PosixFileSystem::renameWithoutReplacing(const FilePath& from, const FilePath& to) {
    int result =
        callAtBoth(from, to, [](int fromFolder, const char* fromName, int toFolder, const char* toName) {
            return renameat2(fromFolder, fromName, toFolder, toName, RENAME_NOREPLACE);
        });
    if (result != 0 && isOneOf(errno, {EINVAL, ENOSYS, ENOTSUP})) {
        result = renameByLink(from, to);
        if (result != 0 && isOneOf(errno, {EPERM, EMLINK, ENOSYS, ENOTSUP})) {
            result = renameAfterLooking(from, to);
        }
    }
    return outcome(result, FileAction::rename, from);
}

FileResult<void> PosixFileSystem::renameReplacing(const FilePath& from, const FilePath& to) {
    return outcome(callAtBoth(from, to, renameat), FileAction::rename, from);
}

FileResult<void> PosixFileSystem::removeFile(const FilePath& path) {
    return outcome(unlinkPath(path), FileAction::remove, path);
}

FileResult<void> PosixFileSystem::removeFolder(const FilePath& folder) {
    const int result =
        callAt(folder, [](int at, const char* name) { return unlinkat(at, name, AT_REMOVEDIR); });
    return outcome(result, FileAction::remove, folder);
}

FileResult<void> PosixFileSystem::flushFolder(const FilePath& folder) {
    const Descriptor descriptor(callAt(folder, [](int at, const char* name) {
        return openat(at, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    }));
    if (!descriptor.isOpen()) {
        return FileError{FileAction::flush, folder, errno};
    }
    const int result = retrying([&] { return fsync(descriptor.get()); });
    if (result != 0 && isOneOf(errno, {EINVAL, EBADF, ENOSYS, ENOTSUP})) {
        return {}; // this file system does not support it
    }
    return outcome(result, FileAction::flush, folder);
}

FileResult<VolumeSpace> PosixFileSystem::volumeSpace(const FilePath& path) const {
    const Descriptor descriptor(
        callAt(path, [](int folder, const char* name) { return openat(folder, name, O_PATH | O_CLOEXEC); }));
    struct statvfs told {};
    if (!descriptor.isOpen() || retrying([&] { return fstatvfs(descriptor.get(), &told); }) != 0) {
        return FileError{FileAction::measure, path, errno};
    }
    VolumeSpace space{byteCount(told.f_blocks, told.f_frsize), byteCount(told.f_bavail, told.f_frsize)};
    if (told.f_files > 0) { // some create space for more file names when it is needed
        space.freeFiles = byteCount(told.f_favail, 1);
    }
    return space;
}

DiskTraits PosixFileSystem::diskTraits(const FilePath& path) const {
    return traitsOfDisk(nearestExisting(path), FilePath("/"));
}

} // namespace lumeo
