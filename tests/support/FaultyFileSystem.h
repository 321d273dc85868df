#pragma once

#include "platform/FileSystem.h"

#include <memory>
#include <mutex>

namespace lumeo {

/// One call to the disk.
struct DiskCall {
    std::string_view operation; ///< the name in the interface: "createFile", "read", "renameReplacing", …
    FileAction action = FileAction::examine;
    FilePath path;
    FilePath newPath;       ///< of a rename; empty for other calls
    std::size_t number = 0; ///< counts all calls from 1; 0 for a mere hint ("evict")
};

/// A file system that passes every call to another one. Its disk can fail, fill up, return wrong data, or let
/// somebody else interfere between two calls. Without instructions it only counts.
///
///     PosixFileSystem real;
///     FaultyFileSystem disk(real);
///     disk.failCall(3, EIO);                                // the third call of all
///     disk.failAction(FileAction::flush, EIO);              // every flush, of files and of folders
///     disk.failWhen([](const DiskCall& call) { return call.operation == "removeFile"; }, EROFS);
///     disk.limitSpace(1000);                                // the 1001st byte written meets ENOSPC
///     disk.flipBitWhenReading([](const FilePath& path) { return path.extension() == "partial"; });
///     disk.beforeEachCall([&](const DiskCall& call) { … }); // watch, interfere, or kill the process
///
/// Every call of FileSystem, ReadableFile and WritableFile counts as one. So does each entry of a walk
/// (action examine), and each folder that the walk enters (action list). A call that fails does not reach the
/// disk, except for the bytes of a write that still fit. evict() cannot fail, so it is announced but not
/// counted. The same is true of isOpenForWriting(). Any thread may call at any time. Files that are opened
/// through it must not outlive it, and it must not outlive the other file system.
class FaultyFileSystem final : public FileSystem {
public:
    explicit FaultyFileSystem(FileSystem& target) : target_(target) {}
    using Hook = std::function<void(const DiskCall&)>;

    /// The number of calls so far.
    [[nodiscard]] std::size_t callCount() const;

    void failCall(std::size_t number, int errnoValue);
    void failAction(FileAction action, int errnoValue);
    void failWhen(std::function<bool(const DiskCall&)> when, int errnoValue);
    void limitSpace(std::int64_t bytes);
    /// Flips one bit of the byte at `offset` whenever a file that `which` selects is read.
    void flipBitWhenReading(std::function<bool(const FilePath&)> which, std::int64_t offset = 0);
    /// Runs before each call, even one that will fail, on the thread of the call. The hook should use the
    /// file system below for its own work on the disk.
    void beforeEachCall(Hook hook);

    FileResult<FileStatus> status(const FilePath& path) const override;
    FileResult<FileStatus> targetStatus(const FilePath& path) const override;
    FileResult<FilePath> linkTarget(const FilePath& link) const override;
    FileResult<std::unique_ptr<DirectoryEnumerator>>
    enumerate(const FilePath& folder, std::function<void(const FileError&)> onError) const override;
    FileResult<std::unique_ptr<ReadableFile>> openForReading(const FilePath& path) const override;
    FileResult<std::unique_ptr<WritableFile>> createFile(const FilePath& path, FileAccess access) override;
    FileResult<std::unique_ptr<WritableFile>> openForAppending(const FilePath& path) override;
    FileResult<std::unique_ptr<FileLock>> lock(const FilePath& path) override;
    FileResult<std::vector<FilePath>> createFolders(const FilePath& folder) override;
    FileResult<void> renameWithoutReplacing(const FilePath& from, const FilePath& to) override;
    FileResult<void> renameReplacing(const FilePath& from, const FilePath& to) override;
    FileResult<void> removeFile(const FilePath& path) override;
    FileResult<void> removeFolder(const FilePath& folder) override;
    FileResult<void> flushFolder(const FilePath& folder) override;
    FileResult<VolumeSpace> volumeSpace(const FilePath& path) const override;
    [[nodiscard]] DiskTraits diskTraits(const FilePath& path) const override {
        return target_.diskTraits(path); // not a call to the disk that should count
    }

private:
    friend class FaultyReadableFile;
    friend class FaultyWritableFile;
    friend class FaultyEnumerator;

    struct Fault {
        std::function<bool(const DiskCall&)> when;
        int errnoValue = 0;
    };
    struct BitFlip {
        std::function<bool(const FilePath&)> which;
        std::int64_t offset = 0;
    };

    /// The error that the call should meet. Absent when there is none.
    std::optional<FileError> meet(std::string_view operation, FileAction action, const FilePath& path,
                                  const FilePath& newPath = {}) const;
    /// The result of `call`, unless it should meet an error.
    template<class Call>
    auto through(std::string_view operation, FileAction action, const FilePath& path, Call call,
                 const FilePath& newPath = {}) const -> decltype(call()) {
        const std::optional<FileError> error = meet(operation, action, path, newPath);
        return error ? decltype(call())(*error) : call();
    }
    void announce(const DiskCall& call) const;
    /// Takes space for `wanted` bytes and returns how many still fit.
    std::size_t takeSpace(std::size_t wanted);
    /// Applies the bit flips to bytes that were read from `offset`.
    void distort(const FilePath& path, std::int64_t offset, std::span<std::byte> bytes) const;

    FileSystem& target_;
    mutable std::mutex mutex_;
    mutable std::size_t callCount_ = 0;
    std::vector<Fault> faults_;
    std::vector<BitFlip> bitFlips_;
    std::optional<std::int64_t> spaceLeft_;
    std::shared_ptr<const Hook> hook_; ///< shared, so that a hook keeps its own counts between calls
};

} // namespace lumeo
