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
/// folder and given the final one only by place(); a copy that was never placed is gone when this
/// object goes out of scope. The steps are taken once, in the order of their declaration, and a step
/// that fails ends them.
///
/// Another process may do the same at the same place. So the copy is locked while it is being made, and
/// all that is proven of it is proven through the descriptor that wrote it, never through its name.
class VerifiedCopy {
public:
    /// `fileSystem` must outlive the copy. `cancelled` is asked before each chunk is used.
    VerifiedCopy(FileSystem& fileSystem, FilePath destination, CancellationCheck cancelled);
    ~VerifiedCopy();
    VerifiedCopy(const VerifiedCopy&) = delete;
    VerifiedCopy& operator=(const VerifiedCopy&) = delete;

    /// Creates the temporary file; one left by an earlier attempt is removed first. Anything else of
    /// that name stays where it is: above all `source` itself, and what somebody else is writing.
    TransferResult<void> create(const FilePath& source);

    /// Copies the content.
    TransferResult<void> write(ReadableFile& source);

    /// Waits until the content is on the device, and drops it from memory.
    TransferResult<void> flush();

    /// SHA-256 of the copy, as the device gives it back.
    TransferResult<std::string> digest();

    /// Gives the copy its final name, unless something else has it by now, and sees that this name leads
    /// to the very file that was written.
    TransferResult<void> place();

    /// The temporary name of a copy that is to become `destination`: the same name with ".partial"
    /// appended, cut short where a file system could not take it.
    static FilePath temporaryPath(const FilePath& destination);

private:
    TransferResult<void> removeLeftOver(const FilePath& source);
    TransferResult<void> claim();
    TransferResult<void> seeThatItIsMine(const FilePath& name);

    FileSystem& fileSystem_;
    FilePath destination_;
    FilePath temporary_;
    CancellationCheck cancelled_;
    std::unique_ptr<WritableFile> file_; ///< open, and so locked, until this object goes out of scope
    std::optional<FileIdentity> identity_;
    bool isTemporaryThere_ = false;
};

} // namespace lumeo
