#include "transfer/HeldFile.h"

namespace lumeo {

FileResult<HeldFile> HeldFile::open(FileSystem& fileSystem, const FilePath& path) {
    FileResult<std::unique_ptr<ReadableFile>> file = fileSystem.openForReading(path);
    if (!file) {
        return file.error();
    }
    const FileResult<FileStatus> status = file.value()->status();
    if (!status) {
        return status.error();
    }
    return HeldFile(fileSystem, path, *std::move(file), *status);
}

FileResult<bool> HeldFile::isUnchanged() const {
    const FileResult<FileStatus> now = fileSystem_->status(path_);
    if (!now) {
        return now.error();
    }
    return now->kind == FileKind::regular && now->identity == status_.identity && now->size == status_.size &&
           now->modificationDate == status_.modificationDate && now->changeDate == status_.changeDate;
}

TransferResult<void> HeldFile::remove() {
    // A write after this check changes the dates, and those are checked next.
    if (file_->isOpenForWriting()) {
        return TransferError(TransferFault::sourceInUse);
    }
    const FileResult<bool> unchanged = isUnchanged();
    if (!unchanged) {
        return TransferError(unchanged.error());
    }
    if (!*unchanged) {
        return TransferError(TransferFault::sourceChanged);
    }
    // Network file systems do not delete an open file. They only hide it under another name.
    file_.reset();
    if (const FileResult<void> removed = fileSystem_->removeFile(path_); !removed) {
        return TransferError(removed.error());
    }
    return {};
}

} // namespace lumeo
