#pragma once

#include "platform/FileSystem.h"

#include <map>
#include <optional>
#include <set>
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

    /// Creates `folder` and what is missing above it, and notes where their names stand: also of folders
    /// that were there, up to the root of the file system, since they may be as young as those created.
    /// Gives those created, outermost first.
    FileResult<std::vector<FilePath>> createFolders(const FilePath& folder);

    /// Removes them again, as far as they are empty.
    void removeFolders(std::vector<FilePath> created);

    /// Notes that a name in `folder` was made or removed.
    void note(const FilePath& folder);

    /// Flushes what was noted in `folder` and in the folders above it: once this succeeds, what has a
    /// name in `folder` can be found after a loss of power. A folder that the device has refused once
    /// is refused for good, since a later success may only mean that the lost write was forgotten.
    FileResult<void> flushPathTo(const FilePath& folder);

    /// Flushes all that was noted. Gives each folder that the device refused, now or before.
    std::vector<UnflushedFolder> flushAll();

private:
    struct Pending {
        bool isOurs = false; ///< a name in it was made or removed here, and must be durable
        std::optional<FileError> refusal;
    };

    FileResult<void> noteWayTo(const FilePath& folder);
    FileResult<void> flush(const FilePath& folder, Pending& pending);

    FileSystem& fileSystem_;
    std::map<FilePath, Pending> pending_;
    std::set<FilePath> waysNoted_; ///< folders whose own name, and all above it, were noted
};

} // namespace lumeo
