#pragma once

#include "platform/FileSystem.h"
#include "transfer/TransferError.h"

#include <memory>

namespace lumeo {

/// A file that will lose its name when its content has been proven to be elsewhere. It stays open until then,
/// which keeps its identity reliable: some file systems, such as those of most memory cards, invent inode
/// numbers and can give a closed file another number at any time.
class HeldFile {
public:
    /// Opens the file and remembers its state. The file must still have this state when it is removed.
    static FileResult<HeldFile> open(FileSystem& fileSystem, const FilePath& path);

    [[nodiscard]] ReadableFile& content() noexcept { return *file_; }
    [[nodiscard]] const FilePath& path() const noexcept { return path_; }
    [[nodiscard]] const FileIdentity& identity() const noexcept { return status_.identity; }

    /// True while the path still leads to this file, without following a link, and while its size and dates
    /// are unchanged.
    FileResult<bool> isUnchanged() const;

    /// Removes the file. Fails with `sourceChanged` when the file has changed or another file has taken its
    /// place. Fails with `sourceInUse` when somebody has it open for writing.
    TransferResult<void> remove();

private:
    HeldFile(FileSystem& fileSystem, FilePath path, std::unique_ptr<ReadableFile> file, FileStatus status)
        : fileSystem_(&fileSystem), path_(std::move(path)), file_(std::move(file)), status_(status) {}

    FileSystem* fileSystem_;
    FilePath path_;
    std::unique_ptr<ReadableFile> file_; ///< null after it was closed for the removal
    FileStatus status_;
};

} // namespace lumeo
