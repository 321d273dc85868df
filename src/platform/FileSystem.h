#pragma once

#include "platform/DiskTraits.h"
#include "platform/FilePath.h"
#include "platform/Instant.h"
#include "platform/Result.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace lumeo {

/// What was being done to a file when the system refused.
enum class FileAction {
    examine,
    list,
    open,
    lock,
    create,
    read,
    write,
    flush,
    rename,
    remove,
    createFolder,
    measure,
};

/// A refusal of the operating system, kept whole until a person reads it.
struct FileError {
    FileAction action = FileAction::examine;
    FilePath path;
    int errnoValue = 0;

    /// One sentence for a person: what could not be done, to which file (its name only), and the
    /// system's own reason.
    [[nodiscard]] std::string message() const;

    friend bool operator==(const FileError&, const FileError&) = default;
};

template<class Value>
using FileResult = Result<Value, FileError>;

/// The one file that a name leads to, whatever other names lead there too.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

enum class FileKind { regular, folder, symbolicLink, other };

struct FileStatus {
    FileKind kind = FileKind::other;
    std::int64_t size = 0;               ///< bytes
    std::optional<Instant> creationDate; ///< absent where the file system keeps none
    std::optional<Instant> modificationDate;
    std::optional<Instant> changeDate; ///< last change of content or attributes, set by the system alone
    FileIdentity identity;
    friend bool operator==(const FileStatus&, const FileStatus&) = default;
};

/// The room on the file system that holds a path, in bytes.
struct VolumeSpace {
    std::int64_t total = 0;
    std::int64_t available = 0; ///< for files of this user
    std::optional<std::int64_t>
        freeFiles{}; ///< how many more can be made; absent where there is no such limit
    friend bool operator==(const VolumeSpace&, const VolumeSpace&) = default;
};

/// A file open for reading. Closed by its destructor; used by one thread at a time.
class ReadableFile {
public:
    virtual ~ReadableFile() = default;

    /// Reads from the current position into `buffer` and moves on. Fewer bytes than asked for is no
    /// sign of the end; only 0 is.
    virtual FileResult<std::size_t> read(std::span<std::byte> buffer) = 0;

    /// Reads from `offset` without moving the current position; 0 at or behind the end.
    virtual FileResult<std::size_t> readAt(std::int64_t offset, std::span<std::byte> buffer) = 0;

    /// The status of the open file itself, whatever has become of its name.
    virtual FileResult<FileStatus> status() = 0;

    /// Drops what the system keeps of the file in memory and is on the device, so that the next read comes
    /// from there. A hint: where the system cannot, nothing happens.
    virtual void evict() {}

    /// True while any process has the file open for writing. False also where the system cannot tell: on
    /// file systems without leases, and for files of another user.
    virtual bool isOpenForWriting() { return false; }

    /// The system's number for the open file, to hand on to a process that is to read this very file. It
    /// stays this object's. Absent where there is none.
    [[nodiscard]] virtual std::optional<int> descriptor() const { return std::nullopt; }
};

/// A file being written at its end. Closed by its destructor, which ignores errors; used by one thread at
/// a time.
class WritableFile {
public:
    virtual ~WritableFile() = default;

    /// Appends all of `bytes`, or fails.
    virtual FileResult<void> write(std::span<const std::byte> bytes) = 0;

    /// Reads back from `offset`, through the descriptor that wrote; 0 at or behind the end.
    virtual FileResult<std::size_t> readAt(std::int64_t offset, std::span<std::byte> buffer) = 0;

    /// The status of the open file itself, whatever has become of its name.
    virtual FileResult<FileStatus> status() = 0;

    /// Takes the file's lock, without waiting, until the file is closed. See FileSystem::lock().
    virtual FileResult<void> lock() = 0;

    /// Returns when what was written is on the device.
    virtual FileResult<void> flush() = 0;

    /// Drops the file's flushed pages from the page cache, so that the next read comes from the
    /// device. A hint: where the system cannot, nothing happens.
    virtual void evict() = 0;

    /// Closes now, to learn of a late error; the file takes no further calls.
    virtual FileResult<void> close() = 0;
};

/// An exclusive lock on a file or folder, given back by its destructor or by the end of the process. Only
/// those who ask for the lock are held off by it; reading, writing and removing go on as ever.
class FileLock {
public:
    virtual ~FileLock() = default;

    /// The status of what was locked, whatever has become of its name.
    virtual FileResult<FileStatus> status() = 0;
};

/// Who may read a new file: everyone, as far as the user's mask lets them, or its owner alone.
enum class FileAccess { everyone, ownerOnly };

struct DirectoryEntry {
    FilePath path;
    /// What one stat of the entry (no link followed) told; or why it could not be told.
    FileResult<FileStatus> status;
};

/// One walk through everything below a folder, parents before their contents, entries in the order
/// of the file system. Links are told, never followed. Used by one thread.
class DirectoryEnumerator {
public:
    virtual ~DirectoryEnumerator() = default;

    /// The next entry; absent when the walk is over.
    virtual std::optional<DirectoryEntry> next() = 0;

    /// Leaves out what lies below the folder that next() gave last. For anything else, nothing happens.
    virtual void skipDescendants() = 0;
};

/// Every touch of the disk goes through here. All calls may be made from any thread at once; paths may
/// be longer than PATH_MAX as long as each name fits the file system.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    /// The entry's own status, no link followed at the last name.
    virtual FileResult<FileStatus> status(const FilePath& path) const = 0;

    /// The status of what the path leads to, links followed.
    virtual FileResult<FileStatus> targetStatus(const FilePath& path) const = 0;

    /// Where a symbolic link leads, seen from its own folder when it does not say from the root. Fails
    /// with EINVAL for anything else.
    virtual FileResult<FilePath> linkTarget(const FilePath& link) const = 0;

    /// True when something has this name, be it a dangling link. An entry that cannot be examined for
    /// another reason than its absence counts as existing, so that nothing is done for want of it.
    [[nodiscard]] bool exists(const FilePath& path) const;

    /// The path itself when something has this name, else the nearest folder above it of which that is
    /// true: where a folder yet to be made would come to lie.
    [[nodiscard]] FilePath nearestExisting(FilePath path) const;

    /// Starts a walk below `folder`, which may itself be a link to one. Folders that cannot be read
    /// later in the walk go to `onError`, and the walk goes on.
    virtual FileResult<std::unique_ptr<DirectoryEnumerator>>
    enumerate(const FilePath& folder, std::function<void(const FileError&)> onError) const = 0;

    /// Opens a regular file, links followed. Never blocks on a pipe or device: those, and folders, are
    /// refused.
    virtual FileResult<std::unique_ptr<ReadableFile>> openForReading(const FilePath& path) const = 0;

    /// Creates a new, empty file; fails with EEXIST when the name is taken, be it by a link.
    virtual FileResult<std::unique_ptr<WritableFile>> createFile(const FilePath& path, FileAccess access) = 0;

    /// Opens a regular file, no link followed at the last name, to write at its end.
    virtual FileResult<std::unique_ptr<WritableFile>> openForAppending(const FilePath& path) = 0;

    /// Takes the lock of the file or folder that `path` leads to, without waiting. Fails with EWOULDBLOCK
    /// while anybody else holds it, with another error where the file system has no locks.
    virtual FileResult<std::unique_ptr<FileLock>> lock(const FilePath& path) = 0;

    /// Creates `folder` and every missing folder above it. Gives the folders created, outermost first;
    /// empty when it was there already. When it fails, those that it had created are gone again.
    virtual FileResult<std::vector<FilePath>> createFolders(const FilePath& folder) = 0;

    /// Renames within one file system without ever replacing: fails with EEXIST when `to` is taken,
    /// with EXDEV across file systems.
    virtual FileResult<void> renameWithoutReplacing(const FilePath& from, const FilePath& to) = 0;

    /// Renames within one file system and replaces a file that has the name. For documents that the
    /// user asked to be written there; media never goes through here.
    virtual FileResult<void> renameReplacing(const FilePath& from, const FilePath& to) = 0;

    /// Removes a file or a link, never a folder.
    virtual FileResult<void> removeFile(const FilePath& path) = 0;

    /// Removes a folder that is empty, no link followed.
    virtual FileResult<void> removeFolder(const FilePath& folder) = 0;

    /// Makes the names in `folder` durable: created, renamed and removed entries survive a loss of
    /// power. File systems that cannot do this are taken to need no flush; an I/O error is an error.
    virtual FileResult<void> flushFolder(const FilePath& folder) = 0;

    /// The room on the file system that `path`, which must exist, lies on.
    virtual FileResult<VolumeSpace> volumeSpace(const FilePath& path) const = 0;

    /// What the disk under `path`, or under the nearest folder above it that exists, takes. Writes nothing;
    /// what cannot be told counts as on this system's own disks.
    [[nodiscard]] virtual DiskTraits diskTraits(const FilePath& path) const = 0;
};

} // namespace lumeo
