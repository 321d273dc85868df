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

/// The device that `folder`, or the nearest folder above it that exists, lies on. Absent when that cannot
/// be told. Any thread may call.
std::optional<std::uint64_t> deviceUnder(const FileSystem& fileSystem, const FilePath& folder);

/// The root of an archive while a run or an undo works in it: on the drive where it belongs, and locked, so
/// that no second one begins. Where the file system has no locks it is held without one.
///
/// Two roots may lie within each other and locks may be missing, so nothing else relies on it.
class ArchiveHold {
public:
    /// For a run: makes `root` where it is missing. `device` is what deviceUnder() gave when the
    /// destination was chosen; when another one is there now, nothing is made.
    static Result<ArchiveHold, RunRefusal> forRun(FileSystem& fileSystem, const FilePath& root,
                                                  std::optional<std::uint64_t> device);

    /// For the undo of a run: its archive has to be there, and not only a folder that its drive left behind.
    static Result<ArchiveHold, RunRefusal> forUndo(FileSystem& fileSystem, const OperationManifest& run);

    [[nodiscard]] const FilePath& root() const noexcept { return root_; }
    [[nodiscard]] std::uint64_t device() const noexcept { return device_; }
    /// What its disk takes; for a run, tried.
    [[nodiscard]] const DiskTraits& disk() const noexcept { return disk_; }
    /// The disk turned out to take less than its file system tells, which is what a plan goes by.
    [[nodiscard]] bool takesLessThanTold() const noexcept { return takesLessThanTold_; }

private:
    ArchiveHold(FilePath root, std::uint64_t device, std::unique_ptr<FileLock> lock)
        : root_(std::move(root)), device_(device), lock_(std::move(lock)) {}

    static Result<ArchiveHold, RunRefusal> take(FileSystem& fileSystem, const FilePath& root);

    FilePath root_;
    std::uint64_t device_;
    DiskTraits disk_{};
    bool takesLessThanTold_ = false;
    std::unique_ptr<FileLock> lock_; ///< null where there are no locks
};

} // namespace lumeo
