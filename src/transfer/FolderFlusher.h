#pragma once

#include "platform/FileSystem.h"

#include <map>
#include <optional>
#include <set>
#include <vector>

namespace lumeo {

/// A folder whose names the device refused to store.
struct UnflushedFolder {
    FilePath folder;
    FileError error;

    /// True when `path` lies in the folder or deeper. Such a path may be lost together with its name.
    [[nodiscard]] bool endangers(const FilePath& path) const;
};

/// Remembers the folders in which names were created or removed, and flushes those folders to the device, so
/// that the names survive a loss of power. Used by one thread.
class FolderFlusher {
public:
    /// `fileSystem` must outlive the flusher.
    explicit FolderFlusher(FileSystem& fileSystem) : fileSystem_(fileSystem) {}

    /// Creates `folder` and the missing folders above it, and notes the folders that hold their names.
    /// Folders that existed before are noted as well, up to the root of the file system, because they may be
    /// as new as those created here.
    /// Returns the created ones, the outermost first.
    FileResult<std::vector<FilePath>> createFolders(const FilePath& folder);

    /// Removes these folders again, as far as they are empty.
    void removeFolders(std::vector<FilePath> created);

    /// Notes that a name in `folder` was created or removed.
    void note(const FilePath& folder);

    /// Flushes what was noted in `folder` and in the folders above it. After a success, every name in
    /// `folder` survives a loss of power. When the device has refused a folder once, the refusal is final: a
    /// later success could only mean that the system forgot the lost write.
    FileResult<void> flushPathTo(const FilePath& folder);

    /// Flushes everything that was noted. Returns each folder that the device refused, now or before.
    std::vector<UnflushedFolder> flushAll();

private:
    struct Pending {
        bool isOurs = false; ///< a name in it was created or removed here and must be durable
        std::optional<FileError> refusal;
    };

    FileResult<void> noteWayTo(const FilePath& folder);
    FileResult<void> flush(const FilePath& folder, Pending& pending);

    FileSystem& fileSystem_;
    std::map<FilePath, Pending> pending_;
    std::set<FilePath> waysNoted_; ///< folders whose own names, and all above, were noted
};

} // namespace lumeo
