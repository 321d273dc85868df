#pragma once

#include "platform/FilePath.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace lumeo {

/// What the system tells about a mounted volume. A fact is absent where the system does not tell it.
struct VolumeFacts {
    std::optional<std::int64_t> totalBytes;
    std::optional<std::int64_t> availableBytes;                  ///< for files of this user
    std::optional<std::int64_t> availableBytesForImportantUsage; ///< with what the system can clear away
    std::optional<std::int64_t> fileSystemTotalBytes;
    std::optional<std::int64_t> fileSystemFreeBytes;
    std::optional<std::string> localizedName; ///< the label of the file system, else the model of the disk
    std::optional<bool> isRemovable;          ///< the medium can be taken out of its drive
    std::optional<bool> isInternal;           ///< the disk is built into the machine
    friend bool operator==(const VolumeFacts&, const VolumeFacts&) = default;
};

/// The mounted volumes. Any thread may call.
class Volumes {
public:
    virtual ~Volumes() = default;

    /// The path with every link resolved. If the path does not exist, it is resolved as far as possible.
    [[nodiscard]] virtual FilePath resolved(const FilePath& path) const = 0;

    /// The mount point of the volume that holds the resolved path. Absent when the path does not exist.
    [[nodiscard]] virtual std::optional<FilePath> mountPoint(const FilePath& path) const = 0;

    [[nodiscard]] virtual VolumeFacts facts(const FilePath& mountPoint) const = 0;
};

/// The system's own figures: the mount table, statvfs, and what the kernel and udev know about the device.
/// Asks no daemon.
///
/// The system has one figure for the total and one for what is available; both are given as the volume's
/// figures. Space that only the administrator may fill does not count as available. `isRemovable` is absent
/// for a drive whose medium stays in it, so that an external disk counts by its connection. A share is named
/// after its last folder.
class SystemVolumes final : public Volumes {
public:
    /// "proc", "sys" and "dev" are looked for in `systemRoot`.
    explicit SystemVolumes(FilePath systemRoot = FilePath("/")) : systemRoot_(std::move(systemRoot)) {}

    [[nodiscard]] FilePath resolved(const FilePath& path) const override;
    [[nodiscard]] std::optional<FilePath> mountPoint(const FilePath& path) const override;
    [[nodiscard]] VolumeFacts facts(const FilePath& mountPoint) const override;

private:
    FilePath systemRoot_;
};

} // namespace lumeo
