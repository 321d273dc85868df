#include "model/SourceVolume.h"

#include "platform/TextFormat.h"

#include <algorithm>

namespace lumeo {
namespace {

/// The figures of the volume and of the file system often leave out different things. The largest figure
/// above zero is taken. If none is above zero, nothing is available; this is not the same as unknown.
std::optional<std::int64_t> availableBytes(const VolumeFacts& facts) {
    std::optional<std::int64_t> largest;
    for (const std::optional<std::int64_t> figure :
         {facts.availableBytesForImportantUsage, facts.availableBytes, facts.fileSystemFreeBytes}) {
        if (figure) {
            largest = std::max({*figure, largest.value_or(0), std::int64_t{0}});
        }
    }
    return largest;
}

std::optional<std::int64_t> totalBytes(const VolumeFacts& facts) {
    for (const std::optional<std::int64_t> figure : {facts.totalBytes, facts.fileSystemTotalBytes}) {
        if (figure.value_or(0) > 0) {
            return figure;
        }
    }
    return std::nullopt;
}

std::string nameOf(const FilePath& url, const VolumeFacts& facts) {
    std::string name = facts.localizedName.value_or(std::string(url.lastComponent()));
    return replacingInvalidUtf8(name.empty() ? url.bytes() : name);
}

} // namespace

VolumeCapacity DestinationCapacityService::capacity(const FilePath& folder, const Volumes& volumes) {
    const FilePath canonical = volumes.resolved(folder);
    const FilePath root = volumes.resolved(volumes.mountPoint(canonical).value_or(canonical));
    const VolumeFacts facts = volumes.facts(root);
    return {root, totalBytes(facts), availableBytes(facts)};
}

SourceVolume SourceVolume::unmeasured(const Uuid& id, const FilePath& url) {
    SourceVolume volume;
    volume.id = id;
    volume.url = url;
    volume.volumeRootURL = url;
    volume.name = nameOf(url, {});
    volume.path = url.bytes();
    return volume;
}

SourceVolume SourceVolume::measure(const Uuid& id, const FilePath& url, const Volumes& volumes) {
    const VolumeCapacity capacity = DestinationCapacityService::capacity(url, volumes);
    const VolumeFacts facts = volumes.facts(capacity.volumeRootURL);
    SourceVolume volume = unmeasured(id, url);
    volume.volumeRootURL = capacity.volumeRootURL;
    volume.name = nameOf(url, facts);
    volume.isVolumeRoot = volumes.resolved(url) == capacity.volumeRootURL;
    volume.isRemovable = facts.isRemovable.value_or(!facts.isInternal.value_or(true));
    volume.totalCapacityBytes = capacity.totalBytes;
    volume.freeSpaceBytes = capacity.availableBytes;
    if (capacity.totalBytes && capacity.availableBytes && *capacity.totalBytes >= *capacity.availableBytes) {
        volume.usedSpaceBytes = *capacity.totalBytes - *capacity.availableBytes;
    }
    return volume;
}

std::optional<std::string> SourceVolume::formattedCapacitySummary() const {
    if (totalCapacityBytes.value_or(0) < 1) {
        return std::nullopt;
    }
    const std::string total = TextFormat::byteCount(*totalCapacityBytes);
    if (usedSpaceBytes) {
        return TextFormat::byteCount(*usedSpaceBytes) + " used / " + total;
    }
    if (freeSpaceBytes) {
        return TextFormat::byteCount(*freeSpaceBytes) + " free of " + total;
    }
    return total;
}

std::optional<double> SourceVolume::usagePercentage() const {
    if (totalCapacityBytes.value_or(0) < 1 || !usedSpaceBytes) {
        return std::nullopt;
    }
    const double share = static_cast<double>(*usedSpaceBytes) / static_cast<double>(*totalCapacityBytes);
    return std::clamp(share, 0.0, 1.0);
}

} // namespace lumeo
