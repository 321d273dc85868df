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

} // namespace

FilePath VerifiedCopy::temporaryPath(const FilePath& destination) {
    std::string name(clippedToBytes(destination.lastComponent(), longestFileName - temporarySuffix.size()));
    return destination.parent().appending(name.append(temporarySuffix));
}

VerifiedCopy::VerifiedCopy(FileSystem& fileSystem, FilePath destination, CancellationCheck cancelled)
    : fileSystem_(fileSystem),
      destination_(std::move(destination)),
      temporary_(temporaryPath(destination_)),
      cancelled_(std::move(cancelled)) {}

VerifiedCopy::~VerifiedCopy() {
    file_.reset();
    if (isTemporaryThere_) {
        static_cast<void>(fileSystem_.removeFile(temporary_));
    }
}

TransferResult<void> VerifiedCopy::create(const FilePath& source) {
    if (TransferResult<void> removed = removeLeftOver(source); !removed) {
        return removed;
    }
    FileResult<std::unique_ptr<WritableFile>> file = fileSystem_.createFile(temporary_);
    if (!file) {
        return TransferError(TransferFault::couldNotCreatePartial);
    }
    file_ = *std::move(file);
    isTemporaryThere_ = true;
    return {};
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
    const FileResult<void> closed = file_->close();
    file_.reset();
    if (!closed) {
        return TransferError(closed.error());
    }
    return {};
}

TransferResult<std::string> VerifiedCopy::digest() const {
    Result<std::string, HashError> digest = StreamingHashService::computeSHA256(
        fileSystem_, temporary_, StreamingHashService::chunkSize, cancelled_);
    if (!digest) {
        return asTransferError(digest.error());
    }
    return *std::move(digest);
}

TransferResult<void> VerifiedCopy::place() {
    const FileResult<void> renamed = fileSystem_.renameWithoutReplacing(temporary_, destination_);
    if (renamed) {
        isTemporaryThere_ = false;
        return {};
    }
    if (renamed.error().errnoValue == EEXIST) {
        return TransferError(TransferFault::destinationAlreadyExists);
    }
    return TransferError(renamed.error());
}

} // namespace lumeo
