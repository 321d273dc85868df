#include "transfer/RunOutlook.h"

#include "transfer/DiskTrial.h"

#include <algorithm>
#include <cerrno>

namespace lumeo {
namespace {

int errnoOf(const TransferError& error) {
    if (const auto* refused = std::get_if<FileError>(&error)) {
        return refused->errnoValue;
    }
    const auto* partial = std::get_if<CouldNotCreatePartial>(&error);
    return partial != nullptr ? partial->reason.errnoValue : 0;
}

bool isOneOf(int value, std::initializer_list<int> values) {
    return std::ranges::find(values, value) != values.end();
}

bool tellsOfRoom(int reason) {
    return isOneOf(reason, {ENOSPC, EDQUOT});
}

bool tellsOfDisk(int reason) {
    return isOneOf(reason, {EIO, EROFS, ENODEV, ENXIO, ESTALE, ENOTCONN, EHOSTDOWN, ETIMEDOUT});
}

} // namespace

RunOutlook::RunOutlook(FileSystem& fileSystem, const ArchiveHold& archive,
                       std::span<const FilePath> sourceRoots, std::span<const MediaItem> items)
    : fileSystem_(fileSystem), archive_(archive), items_(items) {
    for (const FilePath& root : sourceRoots) {
        sources_.push_back({root, deviceUnder(fileSystem, root)});
    }
}

std::optional<std::string> RunOutlook::hopelessness(std::size_t next, const TransferError& error) {
    const int reason = errnoOf(error);
    if (next >= items_.size() || reason == 0) {
        return std::nullopt;
    }
    if (isArchiveGone()) {
        return "The drive of the archive is no longer there.";
    }
    if (tellsOfRoom(reason) && isFullForAll(next)) {
        return "The disk of the archive is full.";
    }
    if (tellsOfDisk(reason)) {
        if (const FileResult<void> tried = tryWriting(fileSystem_, archive_.root()); !tried) {
            return tried.error().errnoValue == EROFS ? "The disk of the archive is write-protected."
                                                     : "The disk of the archive takes nothing more.";
        }
    }
    if ((reason == ENOENT || tellsOfDisk(reason)) && areSourcesGone(next)) {
        return "The drive of the sources is no longer there.";
    }
    return std::nullopt;
}

bool RunOutlook::isArchiveGone() const {
    const FileResult<FileStatus> root = fileSystem_.targetStatus(archive_.root());
    return !root || root->identity.device != archive_.device();
}

bool RunOutlook::isFullForAll(std::size_t next) {
    const FileResult<VolumeSpace> space = fileSystem_.volumeSpace(archive_.root());
    if (!space) {
        return false;
    }
    if (smallestFrom_.empty()) {
        smallestFrom_.resize(items_.size());
        std::int64_t smallest = items_.back().fileSize;
        for (std::size_t i = items_.size(); i-- > 0;) {
            smallest = std::min(smallest, items_[i].fileSize);
            smallestFrom_[i] = smallest;
        }
    }
    return space->available < smallestFrom_[next] || space->freeFiles == 0;
}

/// The items are in the order of the sources, so the first items whose source is still there are found
/// quickly.
bool RunOutlook::areSourcesGone(std::size_t next) {
    std::vector<FilePath> gone;
    for (const Source& source : sources_) {
        if (hasGone(source)) {
            gone.push_back(source.root);
        }
    }
    return !gone.empty() && std::ranges::all_of(items_.subspan(next), [&gone](const MediaItem& item) {
        return std::ranges::any_of(gone,
                                   [&item](const FilePath& root) { return item.sourceURL.liesIn(root); });
    });
}

bool RunOutlook::hasGone(const Source& source) const {
    const FileResult<FileStatus> now = fileSystem_.targetStatus(source.root);
    return !now || (source.device && now->identity.device != *source.device);
}

} // namespace lumeo
