#pragma once

#include "platform/FileSystem.h"

#include <map>
#include <optional>
#include <vector>

namespace lumeo {

/// A folder whose names the device refused to take.
struct UnflushedFolder {
    FilePath folder;
    FileError error;

    /// True when `path` lies in the folder or deeper, and may thus be lost with its names.
    [[nodiscard]] bool endangers(const FilePath& path) const;
};

/// Remembers in which folders names were made or removed and brings those names to the device, so that
/// they survive a loss of power. Used by one thread.
class FolderFlusher {
public:
    /// `fileSystem` must outlive the flusher.
    explicit FolderFlusher(FileSystem& fileSystem) : fileSystem_(fileSystem) {}

    /// Creates `folder` and what is missing above it, and notes where their names stand.
    FileResult<void> createFolders(const FilePath& folder);

    /// Notes that a name in `folder` was made or removed.
    void note(const FilePath& folder);

    /// Flushes what was noted in `folder` and in the folders above it: once this succeeds, what has a
    /// name in `folder` can be found after a loss of power. A folder that the device has refused once
    /// is refused for good, since a later success may only mean that the lost write was forgotten.
    FileResult<void> flushPathTo(const FilePath& folder);

    /// Flushes all that was noted. Gives each folder that the device refused, now or before.
    std::vector<UnflushedFolder> flushAll();

private:
    FileResult<void> flush(const FilePath& folder, std::optional<FileError>& refusal);

    FileSystem& fileSystem_;
    std::map<FilePath, std::optional<FileError>> pending_; ///< with the refusal, if the device refused
};

} // namespace lumeo
