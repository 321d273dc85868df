#pragma once

#include "platform/FileSystem.h"
#include "platform/Result.h"
#include "transfer/OperationManifest.h"
#include "transfer/RunRefusal.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace lumeo {

/// The device of `folder`, or of the nearest existing folder above it. Absent when it is unknown. Any thread
/// may call.
std::optional<std::uint64_t> deviceUnder(const FileSystem& fileSystem, const FilePath& folder);

/// Holds the root of an archive while a run or an undo works in it. It makes sure that the archive is on its
/// own drive and locks it, so that no second run or undo starts. Where the file system has no locks, the
/// archive is held without one.
///
/// Two roots may lie inside each other, and locks may be missing. So nothing else relies on this lock.
class ArchiveHold {
public:
    /// For a run: creates `root` if it is missing. `device` is the result of deviceUnder() when the
    /// destination was chosen. If another device is there now, nothing is created.
    static Result<ArchiveHold, RunRefusal> forRun(FileSystem& fileSystem, const FilePath& root,
                                                  std::optional<std::uint64_t> device);

    /// For the undo of a run. The archive must be there, and not only an empty folder where its drive was.
    static Result<ArchiveHold, RunRefusal> forUndo(FileSystem& fileSystem, const OperationManifest& run);

    [[nodiscard]] const FilePath& root() const noexcept { return root_; }
    [[nodiscard]] std::uint64_t device() const noexcept { return device_; }
    /// What its disk accepts. For a run this was tried.
    [[nodiscard]] const DiskTraits& disk() const noexcept { return disk_; }
    /// The disk accepts less than its file system tells. Plans are based on what the file system tells.
    [[nodiscard]] bool takesLessThanTold() const noexcept { return takesLessThanTold_; }

private:
    ArchiveHold(FilePath root, std::uint64_t device, std::unique_ptr<FileLock> lock)
        : root_(std::move(root)), device_(device), lock_(std::move(lock)) {}

    static Result<ArchiveHold, RunRefusal> take(FileSystem& fileSystem, const FilePath& root);

    FilePath root_;
    std::uint64_t device_;
    DiskTraits disk_{};
    bool takesLessThanTold_ = false;
    std::unique_ptr<FileLock> lock_; ///< null where the file system has no locks
};

} // namespace lumeo
