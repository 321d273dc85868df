#pragma once

#include "platform/FilePath.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace lumeo {

/// What the system tells of a mounted volume; absent where it does not say.
struct VolumeFacts {
    std::optional<std::int64_t> totalBytes;
    std::optional<std::int64_t> availableBytes;                  ///< for files of this user
    std::optional<std::int64_t> availableBytesForImportantUsage; ///< with what the system would clear away
    std::optional<std::int64_t> fileSystemTotalBytes;
    std::optional<std::int64_t> fileSystemFreeBytes;
    std::optional<std::string> localizedName; ///< label of the file system, else model of the disk
    std::optional<bool> isRemovable;          ///< the medium can be taken out of its drive
    std::optional<bool> isInternal;           ///< the disk is built into the machine
    friend bool operator==(const VolumeFacts&, const VolumeFacts&) = default;
};

/// The mounted volumes. Any thread may call.
class Volumes {
public:
    virtual ~Volumes() = default;

    /// The path with every link resolved; as far as that goes when it does not exist.
    [[nodiscard]] virtual FilePath resolved(const FilePath& path) const = 0;

    /// The mount point of the volume that holds the resolved path; absent when the path does not exist.
    [[nodiscard]] virtual std::optional<FilePath> mountPoint(const FilePath& path) const = 0;

    [[nodiscard]] virtual VolumeFacts facts(const FilePath& mountPoint) const = 0;
};

/// The system's own figures: mount table, statvfs, and what kernel and udev know of the device. Asks no
/// daemon.
///
/// The system has one figure each for total and available, given as the volume's own; room that only
/// the administrator may fill is not available. A drive whose medium stays in it leaves `isRemovable`
/// absent, so that a disk on a cable counts by its connection. A share is named after its last folder.
class SystemVolumes final : public Volumes {
public:
    /// `systemRoot` is where "proc", "sys" and "dev" are looked for.
    explicit SystemVolumes(FilePath systemRoot = FilePath("/")) : systemRoot_(std::move(systemRoot)) {}

    [[nodiscard]] FilePath resolved(const FilePath& path) const override;
    [[nodiscard]] std::optional<FilePath> mountPoint(const FilePath& path) const override;
    [[nodiscard]] VolumeFacts facts(const FilePath& mountPoint) const override;

private:
    FilePath systemRoot_;
};

} // namespace lumeo
