#pragma once

#include "platform/FileSystem.h"

namespace lumeo {

/// A file system that hands every call to another one: the base of those that get in the way of a few.
/// The other one must outlive it and the files opened through it.
class ForwardingFileSystem : public FileSystem {
public:
    explicit ForwardingFileSystem(FileSystem& target) : target_(target) {}

    FileResult<FileStatus> status(const FilePath& path) const override { return target_.status(path); }
    FileResult<FileStatus> targetStatus(const FilePath& path) const override {
        return target_.targetStatus(path);
    }
    FileResult<FilePath> linkTarget(const FilePath& link) const override { return target_.linkTarget(link); }
    FileResult<std::unique_ptr<DirectoryEnumerator>>
    enumerate(const FilePath& folder, std::function<void(const FileError&)> onError) const override {
        return target_.enumerate(folder, std::move(onError));
    }
    FileResult<std::unique_ptr<ReadableFile>> openForReading(const FilePath& path) const override {
        return target_.openForReading(path);
    }
    FileResult<std::unique_ptr<WritableFile>> createFile(const FilePath& path) override {
        return target_.createFile(path);
    }
    FileResult<std::vector<FilePath>> createFolders(const FilePath& folder) override {
        return target_.createFolders(folder);
    }
    FileResult<void> renameWithoutReplacing(const FilePath& from, const FilePath& to) override {
        return target_.renameWithoutReplacing(from, to);
    }
    FileResult<void> renameReplacing(const FilePath& from, const FilePath& to) override {
        return target_.renameReplacing(from, to);
    }
    FileResult<void> removeFile(const FilePath& path) override { return target_.removeFile(path); }
    FileResult<void> flushFolder(const FilePath& folder) override { return target_.flushFolder(folder); }
    FileResult<VolumeSpace> volumeSpace(const FilePath& path) const override {
        return target_.volumeSpace(path);
    }

private:
    FileSystem& target_;
};

} // namespace lumeo
