#pragma once

#include "hashing/StreamingHashService.h"
#include "platform/FileSystem.h"
#include "transfer/HeldFile.h"
#include "transfer/TransferError.h"

#include <memory>
#include <optional>
#include <string>

namespace lumeo {

/// The copy of one file on its way to its final name. It is written under a temporary name in the same
/// folder, and place() gives it the final name. If it was never placed, it is removed together with this
/// object. Each step may be called once, in the order of declaration. After a failed step no other step may
/// follow.
///
/// Another process may do the same at the same place. So the copy is locked while it is being made.
/// Everything about it is proven through the descriptor that wrote it, never through its name.
class VerifiedCopy {
public:
    /// `fileSystem` must outlive the copy. `cancelled` is called before each chunk is used.
    VerifiedCopy(FileSystem& fileSystem, FilePath destination, CancellationCheck cancelled);
    ~VerifiedCopy();
    VerifiedCopy(const VerifiedCopy&) = delete;
    VerifiedCopy& operator=(const VerifiedCopy&) = delete;

    /// Creates the temporary file. A file that an earlier attempt left there is removed first. Anything else
    /// with that name stays: above all `source` itself, and a file that somebody else is writing.
    TransferResult<void> create(const FilePath& source);

    /// Copies the content.
    TransferResult<void> write(ReadableFile& source);

    /// Waits until the content is on the device, and removes it from the page cache.
    TransferResult<void> flush();

    /// The SHA-256 of the copy, read back from the device.
    TransferResult<std::string> digest();

    /// Gives the copy its final name, unless something else has that name already. Then checks that the name
    /// leads to the very file that was written.
    TransferResult<void> place();

    /// The temporary name of a copy that will become `destination`. It is the same name with ".partial"
    /// appended, shortened when a file system could not take it.
    static FilePath temporaryPath(const FilePath& destination);

private:
    TransferResult<void> removeLeftOver(const FilePath& source);
    TransferResult<void> claim();
    TransferResult<void> seeThatItIsMine(const FilePath& name);

    FileSystem& fileSystem_;
    FilePath destination_;
    FilePath temporary_;
    CancellationCheck cancelled_;
    std::unique_ptr<WritableFile> file_; ///< open, and so locked, as long as this object exists
    std::optional<FileIdentity> identity_;
    bool isTemporaryThere_ = false;
};

} // namespace lumeo
