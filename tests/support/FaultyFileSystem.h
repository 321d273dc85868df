#pragma once

#include "platform/FileSystem.h"

#include <memory>
#include <mutex>

namespace lumeo {

/// One call on its way to the disk.
struct DiskCall {
    std::string_view operation; ///< the interface's own name: "createFile", "read", "renameReplacing", …
    FileAction action = FileAction::examine;
    FilePath path;
    FilePath newPath;       ///< of a rename; otherwise empty
    std::size_t number = 0; ///< of all calls so far, from 1; 0 for a mere hint ("evict")
};

/// A file system, handing every call to another one, whose disk fails, fills up, lies, or lets somebody else
/// in between two calls. Without being told to it does nothing but count.
///
///     PosixFileSystem real;
///     FaultyFileSystem disk(real);
///     disk.failCall(3, EIO);                                // the third call of all
///     disk.failAction(FileAction::flush, EIO);              // every flush, of files and of folders
///     disk.failWhen([](const DiskCall& call) { return call.operation == "removeFile"; }, EROFS);
///     disk.limitSpace(1000);                                // the 1001st byte written meets ENOSPC
///     disk.flipBitWhenReading([](const FilePath& path) { return path.extension() == "partial"; });
///     disk.beforeEachCall([&](const DiskCall& call) { … }); // look on, interfere, or kill the process
///
/// Every call of FileSystem, ReadableFile and WritableFile counts as one, and so do an entry of a walk
/// (action examine) and its going down into a folder (action list). A call that fails does not reach the
/// disk, except for the bytes of a write that still fit. The evict() of a file cannot fail, so it is
/// announced but not counted; so is isOpenForWriting(). Any thread may call at any time; files opened through
/// it must not outlive it, nor it the other file system.
class FaultyFileSystem final : public FileSystem {
public:
    explicit FaultyFileSystem(FileSystem& target) : target_(target) {}
    using Hook = std::function<void(const DiskCall&)>;

    /// How many calls were made so far.
    [[nodiscard]] std::size_t callCount() const;

    void failCall(std::size_t number, int errnoValue);
    void failAction(FileAction action, int errnoValue);
    void failWhen(std::function<bool(const DiskCall&)> when, int errnoValue);
    void limitSpace(std::int64_t bytes);
    /// Gives one bit wrong, that of the byte at `offset`, whenever a file that `which` picks is read.
    void flipBitWhenReading(std::function<bool(const FilePath&)> which, std::int64_t offset = 0);
    /// Runs before a call is made or failed, on the thread that makes it. What it does itself to the disk
    /// it should do through the file system below.
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
        return target_.diskTraits(path); // no call to the disk worth counting
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

    /// The error that the call is to meet, if any.
    std::optional<FileError> meet(std::string_view operation, FileAction action, const FilePath& path,
                                  const FilePath& newPath = {}) const;
    /// What `call` gives, unless it is to meet an error.
    template<class Call>
    auto through(std::string_view operation, FileAction action, const FilePath& path, Call call,
                 const FilePath& newPath = {}) const -> decltype(call()) {
        const std::optional<FileError> error = meet(operation, action, path, newPath);
        return error ? decltype(call())(*error) : call();
    }
    void announce(const DiskCall& call) const;
    /// How many of `wanted` bytes still fit; takes them.
    std::size_t takeSpace(std::size_t wanted);
    /// Applies the bit flips to what was read from `offset` on.
    void distort(const FilePath& path, std::int64_t offset, std::span<std::byte> bytes) const;

    FileSystem& target_;
    mutable std::mutex mutex_;
    mutable std::size_t callCount_ = 0;
    std::vector<Fault> faults_;
    std::vector<BitFlip> bitFlips_;
    std::optional<std::int64_t> spaceLeft_;
    std::shared_ptr<const Hook> hook_; ///< shared, so that a hook keeps its own counts from call to call
};

} // namespace lumeo
