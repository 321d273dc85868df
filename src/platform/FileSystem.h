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

/// The action on a file that the system refused.
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

/// A refusal of the operating system, kept complete until a person reads it.
struct FileError {
    FileAction action = FileAction::examine;
    FilePath path;
    int errnoValue = 0;

    /// One sentence for a person: what failed, for which file (its name only), and the system's reason.
    [[nodiscard]] std::string message() const;

    friend bool operator==(const FileError&, const FileError&) = default;
};

template<class Value>
using FileResult = Result<Value, FileError>;

/// Identifies the one file that a name leads to. Other names may lead to the same file.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

enum class FileKind { regular, folder, symbolicLink, other };

struct FileStatus {
    FileKind kind = FileKind::other;
    std::int64_t size = 0;               ///< bytes
    std::optional<Instant> creationDate; ///< absent where the file system does not store it
    std::optional<Instant> modificationDate;
    std::optional<Instant> changeDate; ///< last change of content or attributes; only the system sets it
    FileIdentity identity;
    friend bool operator==(const FileStatus&, const FileStatus&) = default;
};

/// The space on the file system that holds a path, in bytes.
struct VolumeSpace {
    std::int64_t total = 0;
    std::int64_t available = 0; ///< for files of this user
    std::optional<std::int64_t>
        freeFiles{}; ///< how many more files can be made; absent where there is no limit
    friend bool operator==(const VolumeSpace&, const VolumeSpace&) = default;
};

/// A file that is open for reading. The destructor closes it. Used by one thread at a time.
class ReadableFile {
public:
    virtual ~ReadableFile() = default;

    /// Reads from the current position into `buffer` and moves the position. Fewer bytes than requested do
    /// not mean the end of the file; only 0 does.
    virtual FileResult<std::size_t> read(std::span<std::byte> buffer) = 0;

    /// Reads from `offset` without moving the current position. 0 at or after the end.
    virtual FileResult<std::size_t> readAt(std::int64_t offset, std::span<std::byte> buffer) = 0;

    /// The status of the open file itself, whatever happened to its name.
    virtual FileResult<FileStatus> status() = 0;

    /// Drops flushed data of the file from the system's memory, so that the next read comes from the device.
    /// This is a hint: nothing happens where the system does not support it.
    virtual void evict() {}

    /// True while any process has the file open for writing. Also false where the system cannot tell: on file
    /// systems without leases, and for files of another user.
    virtual bool isOpenForWriting() { return false; }

    /// The system's number for the open file, to pass to a process that should read this very file. This
    /// object still owns it. Absent when there is none.
    [[nodiscard]] virtual std::optional<int> descriptor() const { return std::nullopt; }
};

/// A file that is written at its end. The destructor closes it and ignores errors. Used by one thread at a
/// time.
class WritableFile {
public:
    virtual ~WritableFile() = default;

    /// Appends all of `bytes`, or fails.
    virtual FileResult<void> write(std::span<const std::byte> bytes) = 0;

    /// Reads from `offset` through the descriptor that wrote the file. 0 at or after the end.
    virtual FileResult<std::size_t> readAt(std::int64_t offset, std::span<std::byte> buffer) = 0;

    /// The status of the open file itself, whatever happened to its name.
    virtual FileResult<FileStatus> status() = 0;

    /// Takes the file's lock without waiting. It is held until the file is closed. See FileSystem::lock().
    virtual FileResult<void> lock() = 0;

    /// Returns when everything that was written is on the device.
    virtual FileResult<void> flush() = 0;

    /// Drops the file's flushed pages from the page cache, so that the next read comes from the device. This
    /// is a hint: nothing happens where the system does not support it.
    virtual void evict() = 0;

    /// Closes the file now, to learn about a late error. No other call may follow.
    virtual FileResult<void> close() = 0;
};

/// An exclusive lock on a file or folder. The destructor or the end of the process releases it. It only stops
/// others that ask for the lock; reading, writing and removing still work.
class FileLock {
public:
    virtual ~FileLock() = default;

    /// The status of the locked file or folder, whatever happened to its name.
    virtual FileResult<FileStatus> status() = 0;
};

/// Who may read a new file: everyone whom the user's umask allows, or only its owner.
enum class FileAccess { everyone, ownerOnly };

struct DirectoryEntry {
    FilePath path;
    /// The result of one stat of the entry, without following a link, or why it failed.
    FileResult<FileStatus> status;
};

/// One walk through everything below a folder. Parents come before their contents, and entries in the order
/// of the file system. Links are reported but never followed. Used by one thread.
class DirectoryEnumerator {
public:
    virtual ~DirectoryEnumerator() = default;

    /// The next entry. Absent when the walk is over.
    virtual std::optional<DirectoryEntry> next() = 0;

    /// Skips everything below the folder that next() returned last. For other entries, nothing happens.
    virtual void skipDescendants() = 0;
};

/// All access to the disk goes through this interface. Any thread may make any call at any time. Paths may be
/// longer than PATH_MAX if each name fits the file system.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    /// The status of the entry itself. A link in the last name is not followed.
    virtual FileResult<FileStatus> status(const FilePath& path) const = 0;

    /// The status of what the path leads to, with links followed.
    virtual FileResult<FileStatus> targetStatus(const FilePath& path) const = 0;

    /// The target of a symbolic link. A relative target is resolved against the link's folder. Fails with
    /// EINVAL for anything else.
    virtual FileResult<FilePath> linkTarget(const FilePath& link) const = 0;

    /// True when something has this name, even a dangling link. An entry that cannot be examined counts as
    /// existing, unless the reason is its absence. So nobody acts on a wrong "not there".
    [[nodiscard]] bool exists(const FilePath& path) const;

    /// The path itself when something has this name, else the nearest existing folder above it. A new folder
    /// would be created there.
    [[nodiscard]] FilePath nearestExisting(FilePath path) const;

    /// Starts a walk below `folder`, which may itself be a link to a folder. Later folders that cannot be
    /// read are reported to `onError`, and the walk continues.
    virtual FileResult<std::unique_ptr<DirectoryEnumerator>>
    enumerate(const FilePath& folder, std::function<void(const FileError&)> onError) const = 0;

    /// Opens a regular file, with links followed. Never blocks on a pipe or device: these are refused, and so
    /// are folders.
    virtual FileResult<std::unique_ptr<ReadableFile>> openForReading(const FilePath& path) const = 0;

    /// Creates a new, empty file. Fails with EEXIST when the name is taken, even by a link.
    virtual FileResult<std::unique_ptr<WritableFile>> createFile(const FilePath& path, FileAccess access) = 0;

    /// Opens a regular file for writing at its end. A link in the last name is not followed.
    virtual FileResult<std::unique_ptr<WritableFile>> openForAppending(const FilePath& path) = 0;

    /// Takes the lock of the file or folder that `path` leads to, without waiting. Fails with EWOULDBLOCK
    /// while somebody else holds it, and with another error where the file system has no locks.
    virtual FileResult<std::unique_ptr<FileLock>> lock(const FilePath& path) = 0;

    /// Creates `folder` and every missing folder above it. Gives the folders created, outermost first;
    /// empty when it was there already. When it fails, those that it had created are gone again.
    virtual FileResult<std::vector<FilePath>> createFolders(const FilePath& folder) = 0;

    /// Renames within one file system and never replaces anything. Fails with EEXIST when `to` is taken, and
    /// with EXDEV across file systems.
    virtual FileResult<void> renameWithoutReplacing(const FilePath& from, const FilePath& to) = 0;

    /// Renames within one file system and replaces a file that has the name. This is for documents that the
    /// user asked for. Media never goes through this call.
    virtual FileResult<void> renameReplacing(const FilePath& from, const FilePath& to) = 0;

    /// Removes a file or a link, never a folder.
    virtual FileResult<void> removeFile(const FilePath& path) = 0;

    /// Removes a folder that is empty, no link followed.
    virtual FileResult<void> removeFolder(const FilePath& folder) = 0;

    /// Makes the names in `folder` durable: created, renamed and removed entries survive a loss of power. A
    /// file system that does not support this is assumed to need no flush. An I/O error is an error.
    virtual FileResult<void> flushFolder(const FilePath& folder) = 0;

    /// The space on the file system of `path`, which must exist.
    virtual FileResult<VolumeSpace> volumeSpace(const FilePath& path) const = 0;

    /// What the disk under `path`, or under the nearest existing folder above it, accepts. Writes nothing.
    /// Unknown facts are assumed to be as on this system's own disks.
    [[nodiscard]] virtual DiskTraits diskTraits(const FilePath& path) const = 0;
};

} // namespace lumeo
