#pragma once

#include "platform/FilePath.h"
#include "platform/Uuid.h"
#include "platform/Volumes.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace lumeo {

/// The space on the volume that holds a folder.
struct VolumeCapacity {
    FilePath volumeRootURL; ///< mount point, or the folder itself when none was found
    std::optional<std::int64_t> totalBytes;
    std::optional<std::int64_t> availableBytes;
    friend bool operator==(const VolumeCapacity&, const VolumeCapacity&) = default;
};

/// Measures the volume of a folder. Any thread may call. Blocks while the volume does not answer.
struct DestinationCapacityService {
    /// Never fails: what cannot be read is absent.
    static VolumeCapacity capacity(const FilePath& folder, const Volumes& volumes);
};

/// A folder that the user chose as source or destination, and the volume that holds it. Both are as they were
/// when they were measured.
struct SourceVolume {
    Uuid id;
    FilePath url;           ///< standardized
    FilePath volumeRootURL; ///< mount point
    std::string name;       ///< for people: the volume's name, else the folder's name, else its path
    std::string path;       ///< bytes as on disk
    bool isVolumeRoot = false;
    bool isRemovable = false; ///< removable medium or external disk
    std::optional<std::int64_t> totalCapacityBytes;
    std::optional<std::int64_t> freeSpaceBytes;
    std::optional<std::int64_t> usedSpaceBytes;
    std::optional<std::vector<std::byte>> securityBookmark; ///< absent on systems without such grants

    /// What is known about `url` without asking the disk.
    static SourceVolume unmeasured(const Uuid& id, const FilePath& url);

    /// Measures `url` now. Blocks while the volume does not answer.
    static SourceVolume measure(const Uuid& id, const FilePath& url, const Volumes& volumes);

    /// "380 GB used / 500 GB", "120 GB free of 500 GB" or "500 GB"; absent without a total.
    [[nodiscard]] std::optional<std::string> formattedCapacitySummary() const;

    /// From 0 to 1; absent when the total or the used size is unknown.
    [[nodiscard]] std::optional<double> usagePercentage() const;

    friend bool operator==(const SourceVolume&, const SourceVolume&) = default;
};

} // namespace lumeo
