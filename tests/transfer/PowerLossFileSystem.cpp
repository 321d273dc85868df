#include "PowerLossFileSystem.h"

#include "support/TempFolder.h"

#include <algorithm>

namespace lumeo {

class PowerLossFile final : public WritableFile {
public:
    PowerLossFile(PowerLossFileSystem& disk, FilePath path, std::unique_ptr<WritableFile> file)
        : disk_(disk), path_(std::move(path)), file_(std::move(file)) {}

    FileResult<void> write(std::span<const std::byte> bytes) override {
        disk_.unflushedContents_.insert(path_);
        return file_->write(bytes);
    }
    FileResult<void> flush() override {
        disk_.unflushedContents_.erase(path_);
        return file_->flush();
    }
    void evict() override { file_->evict(); }
    FileResult<void> close() override { return file_->close(); }

private:
    PowerLossFileSystem& disk_;
    FilePath path_;
    std::unique_ptr<WritableFile> file_;
};

FileResult<std::unique_ptr<WritableFile>> PowerLossFileSystem::createFile(const FilePath& path) {
    FileResult<std::unique_ptr<WritableFile>> file = ForwardingFileSystem::createFile(path);
    if (!file) {
        return file;
    }
    files_.insert(path);
    unflushedNames_.insert(path);
    return std::unique_ptr<WritableFile>(std::make_unique<PowerLossFile>(*this, path, *std::move(file)));
}

FileResult<std::vector<FilePath>> PowerLossFileSystem::createFolders(const FilePath& folder) {
    FileResult<std::vector<FilePath>> created = ForwardingFileSystem::createFolders(folder);
    if (created) {
        unflushedNames_.insert(created->begin(), created->end());
    }
    return created;
}

FileResult<void> PowerLossFileSystem::renameWithoutReplacing(const FilePath& from, const FilePath& to) {
    FileResult<void> renamed = ForwardingFileSystem::renameWithoutReplacing(from, to);
    if (renamed) {
        files_.erase(from);
        files_.insert(to);
        unflushedNames_.erase(from);
        unflushedNames_.insert(to);
        if (unflushedContents_.erase(from) != 0) {
            unflushedContents_.insert(to);
        }
    }
    return renamed;
}

FileResult<void> PowerLossFileSystem::removeFile(const FilePath& path) {
    const std::string content = contentOf(path);
    const bool isKept = std::any_of(files_.begin(), files_.end(), [&](const FilePath& file) {
        return file != path && isDurable(file) && contentOf(file) == content;
    });
    if (!isKept) {
        losses_.push_back(path);
    }
    files_.erase(path);
    return ForwardingFileSystem::removeFile(path);
}

FileResult<void> PowerLossFileSystem::flushFolder(const FilePath& folder) {
    FileResult<void> flushed = ForwardingFileSystem::flushFolder(folder);
    if (flushed) {
        std::erase_if(unflushedNames_, [&](const FilePath& path) { return path.parent() == folder; });
    }
    return flushed;
}

bool PowerLossFileSystem::isDurable(const FilePath& path) const {
    if (unflushedContents_.contains(path)) {
        return false;
    }
    for (FilePath name = path; name != name.parent(); name = name.parent()) {
        if (unflushedNames_.contains(name)) {
            return false;
        }
    }
    return true;
}

} // namespace lumeo
