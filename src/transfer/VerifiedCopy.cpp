#include "transfer/VerifiedCopy.h"

#include "platform/ChunkBuffer.h"
#include "platform/Utf8Text.h"

#include <cerrno>
#include <cstddef>
#include <span>
#include <string_view>
#include <utility>

namespace lumeo {
namespace {

constexpr std::string_view temporarySuffix = ".partial";

/// The length of a name that fits in a home folder that is encrypted file by file. No other disk allows less.
constexpr std::size_t longestTemporaryName = 143;

} // namespace

FilePath VerifiedCopy::temporaryPath(const FilePath& destination) {
    std::string name(
        clippedToBytes(destination.lastComponent(), longestTemporaryName - temporarySuffix.size()));
    return destination.parent().appending(name.append(temporarySuffix));
}

VerifiedCopy::VerifiedCopy(FileSystem& fileSystem, FilePath destination, CancellationCheck cancelled)
    : fileSystem_(fileSystem),
      destination_(std::move(destination)),
      temporary_(temporaryPath(destination_)),
      cancelled_(std::move(cancelled)) {}

VerifiedCopy::~VerifiedCopy() {
    if (isTemporaryThere_ && seeThatItIsMine(temporary_)) {
        static_cast<void>(fileSystem_.removeFile(temporary_));
    }
}

TransferResult<void> VerifiedCopy::create(const FilePath& source) {
    if (TransferResult<void> removed = removeLeftOver(source); !removed) {
        return removed;
    }
    FileResult<std::unique_ptr<WritableFile>> file = fileSystem_.createFile(temporary_, FileAccess::everyone);
    if (!file) {
        return TransferError(CouldNotCreatePartial{file.error()});
    }
    file_ = *std::move(file);
    return claim();
}

/// Locks the new file. Before it is locked, somebody else may take it for an old one and remove it.
TransferResult<void> VerifiedCopy::claim() {
    isTemporaryThere_ = true;
    const FileResult<void> locked = file_->lock();
    const bool isTaken = !locked && locked.error().errnoValue == EWOULDBLOCK;
    if (isTaken || !seeThatItIsMine(temporary_)) {
        return TransferError(CouldNotCreatePartial{{FileAction::lock, temporary_, EWOULDBLOCK}});
    }
    return {};
}

/// Fails unless the name, without following a link, leads to the file that is being written here.
TransferResult<void> VerifiedCopy::seeThatItIsMine(const FilePath& name) {
    if (!identity_) {
        const FileResult<FileStatus> written = file_->status();
        if (!written) {
            return TransferError(written.error());
        }
        identity_ = written->identity;
    }
    const FileResult<FileStatus> found = fileSystem_.status(name);
    if (!found && found.error().errnoValue != ENOENT) {
        return TransferError(found.error());
    }
    return found && found->identity == *identity_ ? TransferResult<void>()
                                                  : TransferError(TransferFault::copyReplaced);
}

TransferResult<void> VerifiedCopy::removeLeftOver(const FilePath& source) {
    const FileResult<FileStatus> found = fileSystem_.status(temporary_);
    if (!found || found->kind != FileKind::regular) {
        return {};
    }
    const FileResult<FileStatus> sourceStatus = fileSystem_.targetStatus(source);
    if (!sourceStatus) {
        return TransferError(sourceStatus.error());
    }
    if (sourceStatus->identity == found->identity) {
        return {};
    }
    // A file that somebody is working on cannot be locked. The lock is held until the file is removed.
    const FileResult<std::unique_ptr<FileLock>> lock = fileSystem_.lock(temporary_);
    const FileResult<FileStatus> locked = lock ? (*lock)->status() : lock.error();
    const FileResult<FileStatus> now = fileSystem_.status(temporary_);
    if (!locked || !now || locked->identity != now->identity || now->identity != found->identity) {
        return {};
    }
    if (const FileResult<void> removed = fileSystem_.removeFile(temporary_); !removed) {
        return TransferError(removed.error());
    }
    return {};
}

TransferResult<void> VerifiedCopy::write(ReadableFile& source) {
    const std::span<std::byte> chunk = threadChunkBuffer(StreamingHashService::chunkSize);
    while (true) {
        const FileResult<std::size_t> count = source.read(chunk);
        if (!count) {
            return TransferError(count.error());
        }
        if (cancelled_()) {
            return TransferError(Cancelled{});
        }
        if (*count == 0) {
            return {};
        }
        if (const FileResult<void> written = file_->write(chunk.first(*count)); !written) {
            return TransferError(written.error());
        }
    }
}

TransferResult<void> VerifiedCopy::flush() {
    if (const FileResult<void> flushed = file_->flush(); !flushed) {
        return TransferError(flushed.error());
    }
    file_->evict();
    return {};
}

TransferResult<std::string> VerifiedCopy::digest() {
    Result<std::string, HashError> digest =
        StreamingHashService::computeSHA256(*file_, temporary_, StreamingHashService::chunkSize, cancelled_);
    if (!digest) {
        return asTransferError(digest.error());
    }
    return *std::move(digest);
}

TransferResult<void> VerifiedCopy::place() {
    // Where locks are missing, somebody else may have taken the name.
    if (TransferResult<void> mine = seeThatItIsMine(temporary_); !mine) {
        return mine;
    }
    const FileResult<void> renamed = fileSystem_.renameWithoutReplacing(temporary_, destination_);
    if (!renamed) {
        return renamed.error().errnoValue == EEXIST ? TransferError(TransferFault::destinationAlreadyExists)
                                                    : TransferError(renamed.error());
    }
    isTemporaryThere_ = false;
    return seeThatItIsMine(destination_);
}

} // namespace lumeo
