#pragma once

#include "platform/FileSystem.h"
#include "transfer/TransferError.h"

#include <memory>

namespace lumeo {

/// A file that is to lose its name once its content has been proven to be elsewhere. It stays open
/// until then, which keeps its identity known: file systems that make up inode numbers, as those of
/// most memory cards do, may give a closed file another one at any time.
class HeldFile {
public:
    /// Opens the file; what it is at this moment is what it must still be when it is removed.
    static FileResult<HeldFile> open(FileSystem& fileSystem, const FilePath& path);

    [[nodiscard]] ReadableFile& content() noexcept { return *file_; }
    [[nodiscard]] const FilePath& path() const noexcept { return path_; }
    [[nodiscard]] const FileIdentity& identity() const noexcept { return status_.identity; }

    /// True while the path, no link followed, still leads to this file, and neither its size nor its
    /// dates have changed.
    FileResult<bool> isUnchanged() const;

    /// Removes the file, unless it has changed or another has taken its place: that is `sourceChanged`; or
    /// somebody has it open for writing: that is `sourceInUse`.
    TransferResult<void> remove();

private:
    HeldFile(FileSystem& fileSystem, FilePath path, std::unique_ptr<ReadableFile> file, FileStatus status)
        : fileSystem_(&fileSystem), path_(std::move(path)), file_(std::move(file)), status_(status) {}

    FileSystem* fileSystem_;
    FilePath path_;
    std::unique_ptr<ReadableFile> file_; ///< null once closed for removal
    FileStatus status_;
};

} // namespace lumeo
