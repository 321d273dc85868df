#include "transfer/ArchiveHold.h"

#include "platform/LockHolder.h"
#include "transfer/DiskTrial.h"

#include <algorithm>
#include <cerrno>

namespace lumeo {
namespace {

using Reason = RunRefusal::Reason;

RunRefusal gone(const FilePath& root) {
    return {Reason::archiveGone,
            "the archive is not there: " + printable(root.bytes()) + " (is its drive connected?)"};
}

RunRefusal changedDrive(const FilePath& root) {
    return {Reason::archiveGone, "the drive of the archive has changed since it was chosen: " +
                                     printable(root.bytes()) + " (is it connected?)"};
}

RunRefusal failed(const FileError& error) {
    std::string sentence = error.message();
    if (sentence.ends_with('.')) {
        sentence.pop_back();
    }
    return {Reason::archiveFailed, "the archive cannot be used: " + sentence};
}

RunRefusal inUse(const FilePath& root, const FileIdentity& identity) {
    return {Reason::archiveInUse,
            "another run is at work in " + printable(root.bytes()) +
                "; wait until it has ended: " + lockHolder(identity).value_or("it does not say who it is")};
}

} // namespace

std::optional<std::uint64_t> deviceUnder(const FileSystem& fileSystem, const FilePath& folder) {
    const FileResult<FileStatus> status = fileSystem.targetStatus(fileSystem.nearestExisting(folder));
    return status ? std::optional(status->identity.device) : std::nullopt;
}

Result<ArchiveHold, RunRefusal> ArchiveHold::forRun(FileSystem& fileSystem, const FilePath& root,
                                                    std::optional<std::uint64_t> device) {
    if (device && deviceUnder(fileSystem, root) != device) {
        return changedDrive(root);
    }
    if (const auto created = fileSystem.createFolders(root); !created) {
        return failed(created.error());
    }
    Result<ArchiveHold, RunRefusal> hold = take(fileSystem, root);
    // Between the two checks the drive may have gone, and the folder may have been created on the disk below
    // it.
    if (hold && device && hold->device() != *device) {
        return changedDrive(root);
    }
    if (hold) {
        const DiskTraits told = fileSystem.diskTraits(root);
        hold->disk_ = triedTraits(fileSystem, root, told);
        hold->takesLessThanTold_ = hold->disk_ != told;
    }
    return hold;
}

Result<ArchiveHold, RunRefusal> ArchiveHold::forUndo(FileSystem& fileSystem, const OperationManifest& run) {
    const FilePath& root = run.destinationRoot;
    const bool wasForeign = std::ranges::find(run.foreignRoots, root) != run.foreignRoots.end();
    if (!fileSystem.exists(root) ||
        (wasForeign && deviceUnder(fileSystem, root) == deviceUnder(fileSystem, FilePath("/")))) {
        return gone(root);
    }
    return take(fileSystem, root);
}

Result<ArchiveHold, RunRefusal> ArchiveHold::take(FileSystem& fileSystem, const FilePath& root) {
    const FileResult<FileStatus> status = fileSystem.targetStatus(root);
    if (!status) {
        return status.error().errnoValue == ENOENT ? gone(root) : failed(status.error());
    }
    FileResult<std::unique_ptr<FileLock>> lock = fileSystem.lock(root);
    if (!lock && lock.error().errnoValue == EWOULDBLOCK) {
        return inUse(root, status->identity);
    }
    return ArchiveHold(root, status->identity.device, lock ? *std::move(lock) : nullptr);
}

} // namespace lumeo
