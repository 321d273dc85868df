#pragma once

#include "platform/FileSystem.h"

namespace lumeo {

/// The real file system of this machine. Stateless: any number may exist.
class PosixFileSystem final : public FileSystem {
public:
    FileResult<FileStatus> status(const FilePath& path) const override;
    FileResult<FileStatus> targetStatus(const FilePath& path) const override;
    FileResult<FilePath> linkTarget(const FilePath& link) const override;
    FileResult<std::unique_ptr<DirectoryEnumerator>>
    enumerate(const FilePath& folder, std::function<void(const FileError&)> onError) const override;
    FileResult<std::unique_ptr<ReadableFile>> openForReading(const FilePath& path) const override;
    FileResult<std::unique_ptr<WritableFile>> createFile(const FilePath& path, FileAccess access) override;
    FileResult<std::unique_ptr<WritableFile>> openForAppending(const FilePath& path) override;
    FileResult<std::unique_ptr<FileLock>> lock(const FilePath& path) override;
    FileResult<std::vector<FilePath>> createFolders(const FilePath& folder) override;
    FileResult<void> renameWithoutReplacing(const FilePath& from, const FilePath& to) override;
    FileResult<void> renameReplacing(const FilePath& from, const FilePath& to) override;
    FileResult<void> removeFile(const FilePath& path) override;
    FileResult<void> removeFolder(const FilePath& folder) override;
    FileResult<void> flushFolder(const FilePath& folder) override;
    FileResult<VolumeSpace> volumeSpace(const FilePath& path) const override;
    [[nodiscard]] DiskTraits diskTraits(const FilePath& path) const override;
};

} // namespace lumeo
