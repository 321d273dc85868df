#pragma once

#include "platform/FileSystem.h"

#include <cerrno>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace lumeo {

/// Files and folders in memory. It is read-only and counts what it is asked. It is for code that looks at the
/// disk but never writes. Every write fails with EROFS.
class MemoryFileSystem final : public FileSystem {
public:
    /// Adds a file and the folders above it.
    void addFile(const FilePath& path, std::string_view content);
    void addFolder(const FilePath& path);
    void addLink(const FilePath& path, const FilePath& target);

    /// Makes opening `path` fail with `errnoValue` from now on.
    void refuseOpening(const FilePath& path, int errnoValue) {
        const auto known = find(path);
        refusedOpening_[known != entries_.end() ? known->first : path] = errnoValue;
    }

    /// Makes examining any name below `folder` fail with `errnoValue` from now on, as without permission.
    void refuseExamining(const FilePath& folder, int errnoValue) { refusedExamining_[folder] = errnoValue; }

    /// What the disk accepts. The lookup of existing names considers case and composition.
    DiskTraits traits;

    /// Called before each opening.
    std::function<void(const FilePath&)> onOpen;

    /// How often status() was called for each path, the files that were opened, in order, and the number of
    /// bytes that were read.
    [[nodiscard]] const std::map<FilePath, int>& examined() const { return examined_; }
    [[nodiscard]] const std::vector<FilePath>& opened() const { return opened_; }
    [[nodiscard]] std::size_t bytesRead() const { return bytesRead_; }

    FileResult<FileStatus> status(const FilePath& path) const override;
    FileResult<FileStatus> targetStatus(const FilePath& path) const override;
    FileResult<FilePath> linkTarget(const FilePath& link) const override { return refused(link); }
    FileResult<std::unique_ptr<ReadableFile>> openForReading(const FilePath& path) const override;

    FileResult<std::unique_ptr<DirectoryEnumerator>>
    enumerate(const FilePath& folder, std::function<void(const FileError&)>) const override {
        return FileError{FileAction::list, folder, ENOTSUP};
    }
    FileResult<std::unique_ptr<WritableFile>> createFile(const FilePath& path, FileAccess) override {
        return refused(path);
    }
    FileResult<std::unique_ptr<WritableFile>> openForAppending(const FilePath& path) override {
        return refused(path);
    }
    FileResult<std::unique_ptr<FileLock>> lock(const FilePath& path) override { return refused(path); }
    FileResult<std::vector<FilePath>> createFolders(const FilePath& path) override { return refused(path); }
    FileResult<void> renameWithoutReplacing(const FilePath& from, const FilePath&) override {
        return refused(from);
    }
    FileResult<void> renameReplacing(const FilePath& from, const FilePath&) override { return refused(from); }
    FileResult<void> removeFile(const FilePath& path) override { return refused(path); }
    FileResult<void> removeFolder(const FilePath& folder) override { return refused(folder); }
    FileResult<void> flushFolder(const FilePath& folder) override { return refused(folder); }
    FileResult<VolumeSpace> volumeSpace(const FilePath&) const override { return VolumeSpace{}; }
    [[nodiscard]] DiskTraits diskTraits(const FilePath&) const override { return traits; }

private:
    static FileError refused(const FilePath& path) { return {FileAction::write, path, EROFS}; }

    struct Entry {
        FileKind kind = FileKind::regular;
        std::string content; ///< for a link: its target
    };

    using Entries = std::map<FilePath, Entry>;
    [[nodiscard]] Entries::const_iterator find(const FilePath& path) const;

    Entries entries_;
    std::map<FilePath, int> refusedOpening_;
    std::map<FilePath, int> refusedExamining_;
    mutable std::map<FilePath, int> examined_;
    mutable std::vector<FilePath> opened_;
    mutable std::size_t bytesRead_ = 0;
};

} // namespace lumeo
