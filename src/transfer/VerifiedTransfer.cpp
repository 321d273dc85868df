#include "transfer/VerifiedTransfer.h"

#include <cerrno>
#include <cstdint>
#include <utility>

namespace lumeo {
namespace {

void conclude(FileTransactionItem& record, TransactionStatus status, std::string_view result) {
    record.status = status;
    record.verificationResult = result;
}

/// A file of this size takes long, so the journal of the files before it is flushed first.
constexpr std::int64_t largeFile = std::int64_t{8} << 20;

constexpr const char* existing = "Destination already exists and was not overwritten.";

bool isAsScanned(const MediaItem& item, const FileStatus& now) {
    return now.size == item.fileSize &&
           (!item.filesystemModificationDate || now.modificationDate == *item.filesystemModificationDate);
}

} // namespace

FileTransactionItem VerifiedTransfer::transferFile(const MediaItem& item, const FilePath& destination,
                                                   OperationMode mode, TransferCancellationToken& token) {
    FileTransactionItem record = newRecord(item, destination);
    lastError_.reset();
    created_.clear();
    if (!fileSystem_.exists(item.sourceURL)) {
        lastError_ = FileError{FileAction::examine, item.sourceURL, ENOENT};
        fail(record, "Source file is no longer available.");
        return record;
    }
    if (journal_ != nullptr) {
        if (mode == OperationMode::move && journal_->problem()) { // its source could not be removed
            fail(record, journal_->problem()->message());
            return record;
        }
        if (item.fileSize >= largeFile) {
            journal_->flush();
        }
    }
    if (const TransferResult<void> done = bringIntoArchive(item, mode, token, record); !done) {
        lastError_ = done.error();
        fail(record, message(done.error()));
    }
    if (record.status == TransactionStatus::failed) {
        folders_.removeFolders(std::exchange(created_, {}));
    }
    return record;
}

TransferResult<void> VerifiedTransfer::bringIntoArchive(const MediaItem& item, OperationMode mode,
                                                        TransferCancellationToken& token,
                                                        FileTransactionItem& record) {
    const FilePath& destination = record.destinationPath;
    const FilePath folder = destination.parent();
    const CancellationCheck cancelled = [&token] { return token.isCancelled(); };

    if (const FileResult<void> created = createFolders(folder); !created) {
        return TransferError(created.error());
    }
    const FileResult<FileStatus> found = fileSystem_.status(destination);
    if (found && found->kind == FileKind::symbolicLink) { // what it leads to need not be in the archive
        fail(record, existing);
        return {};
    }
    if (found) {
        return compareWithExisting(item, cancelled, record);
    }
    // For example a name that is too long. It is better to report this now than after copying all of the
    // content.
    if (found.error().errnoValue != ENOENT) {
        return TransferError(found.error());
    }
    if (archive_.disk().largestFile && item.fileSize > *archive_.disk().largestFile) {
        return TransferError(FileError{FileAction::write, destination, EFBIG});
    }
    VerifiedCopy copy(fileSystem_, destination, cancelled);
    if (TransferResult<void> created = copy.create(item.sourceURL); !created) {
        return created;
    }
    FileResult<HeldFile> source = HeldFile::open(fileSystem_, item.sourceURL);
    if (!source) {
        return TransferError(source.error());
    }
    if (TransferResult<void> written = copy.write(source->content()); !written) {
        return written;
    }
    if (TransferResult<void> proven = proveCopy(item, copy, cancelled, record); !proven) {
        return proven;
    }
    if (TransferResult<void> placed = copy.place(); !placed) {
        return placed;
    }
    folders_.note(folder);
    conclude(record, TransactionStatus::verified, "Verified (SHA-256 Match)");
    return mode == OperationMode::move ? removeSource(*source, folder, token, record)
                                       : TransferResult<void>();
}

FileResult<void> VerifiedTransfer::createFolders(const FilePath& folder) {
    const FileResult<FileStatus> root = fileSystem_.targetStatus(archive_.root());
    if (!root && root.error().errnoValue != ENOENT) {
        return root.error();
    }
    if (!root || root->identity.device != archive_.device()) {
        return FileError{FileAction::createFolder, folder, ENODEV};
    }
    FileResult<std::vector<FilePath>> created = folders_.createFolders(folder);
    if (!created) {
        return created.error();
    }
    created_ = *std::move(created);
    return {};
}

TransferResult<void> VerifiedTransfer::compareWithExisting(const MediaItem& item,
                                                           const CancellationCheck& cancelled,
                                                           FileTransactionItem& record) const {
    const FileResult<FileStatus> source = fileSystem_.targetStatus(item.sourceURL);
    if (!source) {
        return TransferError(source.error());
    }
    // The digest may be older than a change of the file. It would then make the changed file look archived.
    TransferResult<std::string> wanted =
        isAsScanned(item, *source) ? sourceHash(item, cancelled) : hash(item.sourceURL, cancelled);
    if (!wanted) {
        return wanted.error();
    }
    record.sourceHash = *std::move(wanted);
    TransferResult<std::string> found = hash(record.destinationPath, cancelled);
    if (!found) {
        return found.error();
    }
    record.destinationHash = *std::move(found);
    if (record.sourceHash == record.destinationHash) {
        conclude(record, TransactionStatus::skipped, "Skipped (Identical destination already exists)");
    } else {
        fail(record, existing);
    }
    return {};
}

TransferResult<void> VerifiedTransfer::proveCopy(const MediaItem& item, VerifiedCopy& copy,
                                                 const CancellationCheck& cancelled,
                                                 FileTransactionItem& record) const {
    // This comes before the flush, so that the device writes in the meantime.
    TransferResult<std::string> wanted = sourceHash(item, cancelled);
    if (!wanted) {
        return wanted.error();
    }
    record.sourceHash = *std::move(wanted);
    if (TransferResult<void> flushed = copy.flush(); !flushed) {
        return flushed;
    }
    TransferResult<std::string> found = copy.digest();
    if (!found) {
        return found.error();
    }
    record.destinationHash = *std::move(found);
    if (record.sourceHash != record.destinationHash) {
        return TransferError(TransferFault::checksumMismatch);
    }
    if (cancelled()) {
        return TransferError(Cancelled{});
    }
    return {};
}

TransferResult<std::string> VerifiedTransfer::sourceHash(const MediaItem& item,
                                                         const CancellationCheck& cancelled) const {
    return item.sha256Hash ? TransferResult<std::string>(*item.sha256Hash) : hash(item.sourceURL, cancelled);
}

TransferResult<std::string> VerifiedTransfer::hash(const FilePath& path,
                                                   const CancellationCheck& cancelled) const {
    Result<std::string, HashError> digest =
        StreamingHashService::computeSHA256(fileSystem_, path, StreamingHashService::chunkSize, cancelled);
    if (!digest) {
        return asTransferError(digest.error());
    }
    return *std::move(digest);
}

TransferResult<void> VerifiedTransfer::removeSource(HeldFile& source, const FilePath& destinationFolder,
                                                    TransferCancellationToken& token,
                                                    FileTransactionItem& record) {
    if (const FileResult<void> durable = folders_.flushPathTo(destinationFolder); !durable) {
        return TransferError(durable.error());
    }
    if (journal_ != nullptr) {
        if (const FileResult<void> noted = journal_->addDurably(record); !noted) {
            return TransferError(noted.error());
        }
    }
    TransferResult<void> removed;
    if (!token.unlessCancelled([&] { removed = source.remove(); })) {
        conclude(record, TransactionStatus::verified, "Verified; move cancelled before source deletion");
    }
    return !removed && isKept(removed.error(), record) ? TransferResult<void>() : removed;
}

/// A write-protected card, or a folder of another user. The copy is good, so only the source is reported.
bool VerifiedTransfer::isKept(const TransferError& error, FileTransactionItem& record) {
    const auto* refused = std::get_if<FileError>(&error);
    const bool isProtected =
        refused != nullptr && refused->action == FileAction::remove &&
        (refused->errnoValue == EROFS || refused->errnoValue == EACCES || refused->errnoValue == EPERM);
    if (isProtected) {
        ++keptSources_.count;
        keptSources_.first = keptSources_.first.value_or(*refused);
        conclude(record, TransactionStatus::verified, "Verified; the source could not be removed");
    }
    return isProtected;
}

} // namespace lumeo
