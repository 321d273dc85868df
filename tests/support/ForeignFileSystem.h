#pragma once

#include "platform/FileSystem.h"

#include <map>
#include <string>

namespace lumeo {

/// Simulates another disk below `root`. The disk compares, refuses and limits names and files as `traits`
/// tell, like exFAT. It claims to have the traits `told`. Calls outside of `root` go to the other file system
/// unchanged.
class ForeignFileSystem final : public FileSystem {
public:
    ForeignFileSystem(FileSystem& target, FilePath root, const DiskTraits& traits, const DiskTraits& told)
        : target_(target), root_(std::move(root)), traits_(traits), told_(told) {}

    FileResult<FileStatus> status(const FilePath& path) const override {
        return target_.status(actual(path));
    }
    FileResult<FileStatus> targetStatus(const FilePath& path) const override {
        return target_.targetStatus(actual(path));
    }
    FileResult<FilePath> linkTarget(const FilePath& link) const override { return target_.linkTarget(link); }
    FileResult<std::unique_ptr<DirectoryEnumerator>>
    enumerate(const FilePath& folder, std::function<void(const FileError&)> onError) const override {
        return target_.enumerate(actual(folder), std::move(onError));
    }
    FileResult<std::unique_ptr<ReadableFile>> openForReading(const FilePath& path) const override {
        return target_.openForReading(actual(path));
    }
    FileResult<std::unique_ptr<WritableFile>> createFile(const FilePath& path, FileAccess access) override;
    FileResult<std::unique_ptr<WritableFile>> openForAppending(const FilePath& path) override {
        return target_.openForAppending(actual(path));
    }
    FileResult<std::unique_ptr<FileLock>> lock(const FilePath& path) override {
        return target_.lock(actual(path));
    }
    FileResult<std::vector<FilePath>> createFolders(const FilePath& folder) override;
    FileResult<void> renameWithoutReplacing(const FilePath& from, const FilePath& to) override;
    FileResult<void> renameReplacing(const FilePath& from, const FilePath& to) override {
        return target_.renameReplacing(actual(from), actual(to));
    }
    FileResult<void> removeFile(const FilePath& path) override;
    FileResult<void> removeFolder(const FilePath& folder) override {
        return target_.removeFolder(actual(folder));
    }
    FileResult<void> flushFolder(const FilePath& folder) override {
        return target_.flushFolder(actual(folder));
    }
    FileResult<VolumeSpace> volumeSpace(const FilePath& path) const override {
        return target_.volumeSpace(path);
    }
    [[nodiscard]] DiskTraits diskTraits(const FilePath& path) const override {
        return liesOnDisk(path) ? told_ : target_.diskTraits(path);
    }

private:
    [[nodiscard]] bool liesOnDisk(const FilePath& path) const;
    /// The name that the disk has for `path`, which may differ in case.
    [[nodiscard]] FilePath actual(const FilePath& path) const;
    [[nodiscard]] bool refuses(const FilePath& path) const;
    void note(const FilePath& path);

    FileSystem& target_;
    FilePath root_;
    DiskTraits traits_;
    DiskTraits told_;
    std::map<std::string, FilePath> names_; ///< by the form that the disk compares
};

} // namespace lumeo
