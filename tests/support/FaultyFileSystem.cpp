#include "support/FaultyFileSystem.h"

#include <algorithm>
#include <cerrno>

namespace lumeo {

class FaultyReadableFile final : public ReadableFile {
public:
    FaultyReadableFile(const FaultyFileSystem& disk, FilePath path, std::unique_ptr<ReadableFile> file)
        : disk_(disk), path_(std::move(path)), file_(std::move(file)) {}

    FileResult<std::size_t> read(std::span<std::byte> buffer) override {
        FileResult<std::size_t> count =
            disk_.through("read", FileAction::read, path_, [&] { return file_->read(buffer); });
        if (count) {
            disk_.distort(path_, position_, buffer.first(*count));
            position_ += static_cast<std::int64_t>(*count);
        }
        return count;
    }

    FileResult<std::size_t> readAt(std::int64_t offset, std::span<std::byte> buffer) override {
        FileResult<std::size_t> count =
            disk_.through("readAt", FileAction::read, path_, [&] { return file_->readAt(offset, buffer); });
        if (count) {
            disk_.distort(path_, offset, buffer.first(*count));
        }
        return count;
    }

    FileResult<FileStatus> status() override {
        return disk_.through("status", FileAction::examine, path_, [&] { return file_->status(); });
    }

    bool isOpenForWriting() override {
        disk_.announce({"isOpenForWriting", FileAction::examine, path_, {}, 0});
        return file_->isOpenForWriting();
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
        return disk_.through("write", FileAction::write, path_, [&]() -> FileResult<void> {
            const std::size_t fitting = disk_.takeSpace(bytes.size());
            FileResult<void> written = file_->write(bytes.first(fitting));
            return written && fitting < bytes.size() ? FileError{FileAction::write, path_, ENOSPC} : written;
        });
    }

    FileResult<std::size_t> readAt(std::int64_t offset, std::span<std::byte> buffer) override {
        FileResult<std::size_t> count =
            disk_.through("readAt", FileAction::read, path_, [&] { return file_->readAt(offset, buffer); });
        if (count) {
            disk_.distort(path_, offset, buffer.first(*count));
        }
        return count;
    }

    FileResult<FileStatus> status() override {
        return disk_.through("status", FileAction::examine, path_, [&] { return file_->status(); });
    }

    FileResult<void> lock() override {
        return disk_.through("lock", FileAction::lock, path_, [&] { return file_->lock(); });
    }

    FileResult<void> flush() override {
        return disk_.through("flush", FileAction::flush, path_, [&] { return file_->flush(); });
    }

    void evict() override {
        disk_.announce({"evict", FileAction::flush, path_, {}, 0});
        file_->evict();
    }

    FileResult<void> close() override {
        return disk_.through("close", FileAction::write, path_, [&] { return file_->close(); });
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

void FaultyFileSystem::failAction(FileAction action, int errnoValue) {
    failWhen([action](const DiskCall& call) { return call.action == action; }, errnoValue);
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
    DiskCall call{operation, action, path, newPath, 0};
    {
        const std::lock_guard guard(mutex_);
        call.number = ++callCount_;
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
        (*hook)(call); // without the lock: it may wait for a thread that uses this disk
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
    return through("status", FileAction::examine, path, [&] { return target_.status(path); });
}

FileResult<FileStatus> FaultyFileSystem::targetStatus(const FilePath& path) const {
    return through("targetStatus", FileAction::examine, path, [&] { return target_.targetStatus(path); });
}

FileResult<FilePath> FaultyFileSystem::linkTarget(const FilePath& link) const {
    return through("linkTarget", FileAction::examine, link, [&] { return target_.linkTarget(link); });
}

FileResult<std::unique_ptr<DirectoryEnumerator>>
FaultyFileSystem::enumerate(const FilePath& folder, std::function<void(const FileError&)> onError) const {
    auto walk =
        through("enumerate", FileAction::list, folder, [&] { return target_.enumerate(folder, onError); });
    if (walk) {
        walk.value() = std::make_unique<FaultyEnumerator>(*this, *std::move(walk), std::move(onError));
    }
    return walk;
}

FileResult<std::unique_ptr<ReadableFile>> FaultyFileSystem::openForReading(const FilePath& path) const {
    auto file =
        through("openForReading", FileAction::open, path, [&] { return target_.openForReading(path); });
    if (file) {
        file.value() = std::make_unique<FaultyReadableFile>(*this, path, *std::move(file));
    }
    return file;
}

FileResult<std::unique_ptr<WritableFile>> FaultyFileSystem::createFile(const FilePath& path,
                                                                       FileAccess access) {
    auto file =
        through("createFile", FileAction::create, path, [&] { return target_.createFile(path, access); });
    if (file) {
        file.value() = std::make_unique<FaultyWritableFile>(*this, path, *std::move(file));
    }
    return file;
}

FileResult<std::unique_ptr<WritableFile>> FaultyFileSystem::openForAppending(const FilePath& path) {
    auto file =
        through("openForAppending", FileAction::open, path, [&] { return target_.openForAppending(path); });
    if (file) {
        file.value() = std::make_unique<FaultyWritableFile>(*this, path, *std::move(file));
    }
    return file;
}

FileResult<std::unique_ptr<FileLock>> FaultyFileSystem::lock(const FilePath& path) {
    return through("lock", FileAction::lock, path, [&] { return target_.lock(path); });
}

FileResult<std::vector<FilePath>> FaultyFileSystem::createFolders(const FilePath& folder) {
    return through("createFolders", FileAction::createFolder, folder,
                   [&] { return target_.createFolders(folder); });
}

FileResult<void> FaultyFileSystem::renameWithoutReplacing(const FilePath& from, const FilePath& to) {
    const auto rename = [&] { return target_.renameWithoutReplacing(from, to); };
    return through("renameWithoutReplacing", FileAction::rename, from, rename, to);
}

FileResult<void> FaultyFileSystem::renameReplacing(const FilePath& from, const FilePath& to) {
    const auto rename = [&] { return target_.renameReplacing(from, to); };
    return through("renameReplacing", FileAction::rename, from, rename, to);
}

FileResult<void> FaultyFileSystem::removeFile(const FilePath& path) {
    return through("removeFile", FileAction::remove, path, [&] { return target_.removeFile(path); });
}

FileResult<void> FaultyFileSystem::removeFolder(const FilePath& folder) {
    return through("removeFolder", FileAction::remove, folder, [&] { return target_.removeFolder(folder); });
}

FileResult<void> FaultyFileSystem::flushFolder(const FilePath& folder) {
    return through("flushFolder", FileAction::flush, folder, [&] { return target_.flushFolder(folder); });
}

FileResult<VolumeSpace> FaultyFileSystem::volumeSpace(const FilePath& path) const {
    FileResult<VolumeSpace> space =
        through("volumeSpace", FileAction::measure, path, [&] { return target_.volumeSpace(path); });
    const std::lock_guard guard(mutex_);
    if (space && spaceLeft_) {
        space->available = *spaceLeft_;
    }
    return space;
}

} // namespace lumeo
