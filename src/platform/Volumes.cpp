#include "platform/Volumes.h"

#include "platform/PosixFileSystem.h"
#include "platform/volumes/BlockDevice.h"
#include "platform/volumes/MountTable.h"
#include "platform/volumes/SystemFiles.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace lumeo {
namespace {

/// "photos" for "nas:/export/photos" and "//nas/photos". The host when the share has no other name.
std::optional<std::string> shareName(const Mount& mount) {
    static constexpr std::array<std::string_view, 6> types{"cifs", "fuse.rclone", "fuse.sshfs",
                                                           "nfs",  "nfs4",        "smb3"};
    if (std::ranges::find(types, mount.fileSystemType) == types.end()) {
        return std::nullopt;
    }
    constexpr std::string_view separators = ":/";
    const std::string& source = mount.source;
    const std::size_t last = source.find_last_not_of(separators);
    if (last == std::string::npos) {
        return std::nullopt;
    }
    const std::size_t before = source.find_last_of(separators, last);
    const std::size_t first = before == std::string::npos ? 0 : before + 1;
    return source.substr(first, last + 1 - first);
}

void measure(const FilePath& mountPoint, VolumeFacts& facts) {
    const FileResult<VolumeSpace> space = PosixFileSystem().volumeSpace(mountPoint);
    // A file system without a size has not counted its free space either.
    if (space && space->total > 0) {
        facts.totalBytes = space->total;
        facts.availableBytes = space->available;
    }
}

} // namespace

FilePath SystemVolumes::resolved(const FilePath& path) const {
    FilePath existing = path;
    std::string rest;
    while (!existing.empty()) {
        if (const std::optional<FilePath> real = realPath(existing)) {
            return FilePath::standardized(real->appending(rest).bytes());
        }
        const FilePath parent = existing.parent();
        if (parent == existing) {
            break;
        }
        rest = FilePath(std::string(existing.lastComponent())).appending(rest).bytes();
        existing = parent;
    }
    return FilePath::standardized(path.bytes());
}

std::optional<FilePath> SystemVolumes::mountPoint(const FilePath& path) const {
    std::optional<Mount> mount = mountUnder(path, systemRoot_);
    return mount ? std::optional(std::move(mount->point)) : std::nullopt;
}

VolumeFacts SystemVolumes::facts(const FilePath& mountPoint) const {
    VolumeFacts facts;
    measure(mountPoint, facts);
    const std::optional<Mount> mount = mountUnder(mountPoint, systemRoot_);
    if (!mount) {
        return facts;
    }
    if (const std::optional<BlockDevice> device = blockDeviceOf(*mount, systemRoot_)) {
        facts.localizedName = device->label ? device->label : device->model;
        facts.isInternal = device->isInternal;
        if (device->hasRemovableMedium) {
            facts.isRemovable = true;
        }
    } else {
        facts.localizedName = shareName(*mount);
    }
    return facts;
}

} // namespace lumeo
