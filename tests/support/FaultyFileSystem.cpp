#include "support/FaultyFileSystem.h"

#include <algorithm>
#include <cerrno>

namespace lumeo {

class FaultyReadableFile final : public ReadableFile {
public:
    FaultyReadableFile(const FaultyFileSystem& disk, FilePath path, std::unique_ptr<ReadableFile> file)
        : disk_(disk), path_(std::move(path)), file_(std::move(file)) {}

    FileResult<std::size_t> read(std::span<std::byte> buffer) override {
        if (auto error = disk_.meet("read", FileAction::read, path_)) {
            return *error;
        }
        FileResult<std::size_t> count = file_->read(buffer);
        if (count) {
            disk_.distort(path_, position_, buffer.first(*count));
            position_ += static_cast<std::int64_t>(*count);
        }
        return count;
    }

    FileResult<std::size_t> readAt(std::int64_t offset, std::span<std::byte> buffer) override {
        if (auto error = disk_.meet("readAt", FileAction::read, path_)) {
            return *error;
        }
        FileResult<std::size_t> count = file_->readAt(offset, buffer);
        if (count) {
            disk_.distort(path_, offset, buffer.first(*count));
        }
        return count;
    }

    FileResult<FileStatus> status() override {
        if (auto error = disk_.meet("status", FileAction::examine, path_)) {
            return *error;
        }
        return file_->status();
    }

private:
    const FaultyFileSystem& disk_;
    FilePath path_;
    std::unique_ptr<ReadableFile> file_;
    std::int64_t position_ = 0;
};

class FaultyWritableFile final : public WritableFile {
public:
    FaultyWritableFile(FaultyFileSystem& disk, FilePath path, std::unique_ptr<WritableFile> file)
        : disk_(disk), path_(std::move(path)), file_(std::move(file)) {}

    FileResult<void> write(std::span<const std::byte> bytes) override {
        if (auto error = disk_.meet("write", FileAction::write, path_)) {
            return *error;
        }
        const std::size_t fitting = disk_.takeSpace(bytes.size());
        FileResult<void> written = file_->write(bytes.first(fitting));
        if (written && fitting < bytes.size()) {
            return FileError{FileAction::write, path_, ENOSPC};
        }
        return written;
    }

    FileResult<void> flush() override {
        if (auto error = disk_.meet("flush", FileAction::flush, path_)) {
            return *error;
        }
        return file_->flush();
    }

    void evict() override {
        disk_.announce({"evict", FileAction::flush, path_, {}, 0, 0});
        file_->evict();
    }

    FileResult<void> close() override {
        if (auto error = disk_.meet("close", FileAction::write, path_)) {
            return *error;
        }
        return file_->close();
    }

private:
    FaultyFileSystem& disk_;
    FilePath path_;
    std::unique_ptr<WritableFile> file_;
};

class FaultyEnumerator final : public DirectoryEnumerator {
public:
    FaultyEnumerator(const FaultyFileSystem& disk, std::unique_ptr<DirectoryEnumerator> walk,
                     std::function<void(const FileError&)> onError)
        : disk_(disk), walk_(std::move(walk)), onError_(std::move(onError)) {}

    std::optional<DirectoryEntry> next() override {
        if (folderGivenLast_) {
            if (auto error = disk_.meet("enumerate", FileAction::list, *folderGivenLast_)) {
                walk_->skipDescendants();
                if (onError_) {
                    onError_(*error);
                }
            }
            folderGivenLast_.reset();
        }
        std::optional<DirectoryEntry> entry = walk_->next();
        if (!entry) {
            return entry;
        }
        if (auto error = disk_.meet("next", FileAction::examine, entry->path)) {
            walk_->skipDescendants();
            entry->status = *error;
        } else if (entry->status && entry->status->kind == FileKind::folder) {
            folderGivenLast_ = entry->path;
        }
        return entry;
    }

    void skipDescendants() override {
        folderGivenLast_.reset();
        walk_->skipDescendants();
    }

private:
    const FaultyFileSystem& disk_;
    std::unique_ptr<DirectoryEnumerator> walk_;
    std::function<void(const FileError&)> onError_;
    std::optional<FilePath> folderGivenLast_;
};

std::size_t FaultyFileSystem::callCount() const {
    const std::lock_guard guard(mutex_);
    return callCount_;
}

void FaultyFileSystem::failCall(std::size_t number, int errnoValue) {
    failWhen([number](const DiskCall& call) { return call.number == number; }, errnoValue);
}

void FaultyFileSystem::failAction(FileAction action, int errnoValue, std::size_t nth) {
    failWhen(
        [action, nth](const DiskCall& call) {
            return call.action == action && (nth == 0 || call.ofItsAction == nth);
        },
        errnoValue);
}

void FaultyFileSystem::failWhen(std::function<bool(const DiskCall&)> when, int errnoValue) {
    const std::lock_guard guard(mutex_);
    faults_.push_back({std::move(when), errnoValue});
}

void FaultyFileSystem::limitSpace(std::int64_t bytes) {
    const std::lock_guard guard(mutex_);
    spaceLeft_ = bytes;
}

void FaultyFileSystem::flipBitWhenReading(std::function<bool(const FilePath&)> which, std::int64_t offset) {
    const std::lock_guard guard(mutex_);
    bitFlips_.push_back({std::move(which), offset});
}

void FaultyFileSystem::beforeEachCall(Hook hook) {
    const std::lock_guard guard(mutex_);
    hook_ = std::make_shared<const Hook>(std::move(hook));
}

std::optional<FileError> FaultyFileSystem::meet(std::string_view operation, FileAction action,
                                                const FilePath& path, const FilePath& newPath) const {
    DiskCall call{operation, action, path, newPath, 0, 0};
    {
        const std::lock_guard guard(mutex_);
        call.number = ++callCount_;
        call.ofItsAction = ++callsByAction_.at(static_cast<std::size_t>(action));
    }
    announce(call);
    const std::lock_guard guard(mutex_);
    for (const Fault& fault : faults_) {
        if (fault.when(call)) {
            return FileError{action, path, fault.errnoValue};
        }
    }
    return std::nullopt;
}

void FaultyFileSystem::announce(const DiskCall& call) const {
    std::shared_ptr<const Hook> hook;
    {
        const std::lock_guard guard(mutex_);
        hook = hook_;
    }
    if (hook && *hook) {
        (*hook)(call); // unlocked: it may wait for a thread that uses this disk
    }
}

std::size_t FaultyFileSystem::takeSpace(std::size_t wanted) {
    const std::lock_guard guard(mutex_);
    if (!spaceLeft_) {
        return wanted;
    }
    const auto fitting = std::min(static_cast<std::int64_t>(wanted), *spaceLeft_);
    *spaceLeft_ -= fitting;
    return static_cast<std::size_t>(fitting);
}

void FaultyFileSystem::distort(const FilePath& path, std::int64_t offset, std::span<std::byte> bytes) const {
    const std::lock_guard guard(mutex_);
    for (const BitFlip& flip : bitFlips_) {
        const std::int64_t at = flip.offset - offset;
        if (at >= 0 && at < static_cast<std::int64_t>(bytes.size()) && flip.which(path)) {
            bytes[static_cast<std::size_t>(at)] ^= std::byte{1};
        }
    }
}

FileResult<FileStatus> FaultyFileSystem::status(const FilePath& path) const {
    if (auto error = meet("status", FileAction::examine, path)) {
        return *error;
    }
    return ForwardingFileSystem::status(path);
}

FileResult<FileStatus> FaultyFileSystem::targetStatus(const FilePath& path) const {
    if (auto error = meet("targetStatus", FileAction::examine, path)) {
        return *error;
    }
    return ForwardingFileSystem::targetStatus(path);
}

FileResult<FilePath> FaultyFileSystem::linkTarget(const FilePath& link) const {
    if (auto error = meet("linkTarget", FileAction::examine, link)) {
        return *error;
    }
    return ForwardingFileSystem::linkTarget(link);
}

FileResult<std::unique_ptr<DirectoryEnumerator>>
FaultyFileSystem::enumerate(const FilePath& folder, std::function<void(const FileError&)> onError) const {
    if (auto error = meet("enumerate", FileAction::list, folder)) {
        return *error;
    }
    auto walk = ForwardingFileSystem::enumerate(folder, onError);
    if (!walk) {
        return walk;
    }
    return std::unique_ptr<DirectoryEnumerator>(
        std::make_unique<FaultyEnumerator>(*this, *std::move(walk), std::move(onError)));
}

FileResult<std::unique_ptr<ReadableFile>> FaultyFileSystem::openForReading(const FilePath& path) const {
    if (auto error = meet("openForReading", FileAction::open, path)) {
        return *error;
    }
    auto file = ForwardingFileSystem::openForReading(path);
    if (!file) {
        return file;
    }
    return std::unique_ptr<ReadableFile>(std::make_unique<FaultyReadableFile>(*this, path, *std::move(file)));
}

FileResult<std::unique_ptr<WritableFile>> FaultyFileSystem::createFile(const FilePath& path) {
    if (auto error = meet("createFile", FileAction::create, path)) {
        return *error;
    }
    auto file = ForwardingFileSystem::createFile(path);
    if (!file) {
        return file;
    }
    return std::unique_ptr<WritableFile>(std::make_unique<FaultyWritableFile>(*this, path, *std::move(file)));
}

FileResult<std::vector<FilePath>> FaultyFileSystem::createFolders(const FilePath& folder) {
    if (auto error = meet("createFolders", FileAction::createFolder, folder)) {
        return *error;
    }
    return ForwardingFileSystem::createFolders(folder);
}

FileResult<void> FaultyFileSystem::renameWithoutReplacing(const FilePath& from, const FilePath& to) {
    if (auto error = meet("renameWithoutReplacing", FileAction::rename, from, to)) {
        return *error;
    }
    return ForwardingFileSystem::renameWithoutReplacing(from, to);
}

FileResult<void> FaultyFileSystem::renameReplacing(const FilePath& from, const FilePath& to) {
    if (auto error = meet("renameReplacing", FileAction::rename, from, to)) {
        return *error;
    }
    return ForwardingFileSystem::renameReplacing(from, to);
}

FileResult<void> FaultyFileSystem::removeFile(const FilePath& path) {
    if (auto error = meet("removeFile", FileAction::remove, path)) {
        return *error;
    }
    return ForwardingFileSystem::removeFile(path);
}

FileResult<void> FaultyFileSystem::flushFolder(const FilePath& folder) {
    if (auto error = meet("flushFolder", FileAction::flush, folder)) {
        return *error;
    }
    return ForwardingFileSystem::flushFolder(folder);
}

FileResult<VolumeSpace> FaultyFileSystem::volumeSpace(const FilePath& path) const {
    if (auto error = meet("volumeSpace", FileAction::measure, path)) {
        return *error;
    }
    return ForwardingFileSystem::volumeSpace(path);
}

} // namespace lumeo
