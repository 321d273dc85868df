#pragma once

#include "platform/FileSystem.h"
#include "platform/Result.h"

#include <cstddef>
#include <functional>
#include <string>
#include <variant>

namespace lumeo {

/// Called between chunks on the working thread. True stops the work.
using CancellationCheck = std::function<bool()>;

/// The work was stopped by its cancellation check.
struct Cancelled {
    friend bool operator==(Cancelled, Cancelled) = default;
};

/// Why there is no digest: the file's own error, or a cancellation.
using HashError = std::variant<FileError, Cancelled>;

/// SHA-256 of files of any size in constant memory. Any thread may call, and any number of files may be
/// hashed at once.
struct StreamingHashService {
    /// The number of bytes read at a time, for hashing and copying alike.
    static constexpr std::size_t chunkSize = std::size_t{1024} * 1024;

    /// The digest as 64 lower-case hexadecimal digits. `cancelled` is called before each chunk is used and
    /// once at the end.
    static Result<std::string, HashError> computeSHA256(const FileSystem& fileSystem, const FilePath& path,
                                                        std::size_t bytesPerRead,
                                                        const CancellationCheck& cancelled);

    /// The same, but read from the device and not from the system's memory.
    static Result<std::string, HashError> computeSHA256FromDevice(const FileSystem& fileSystem,
                                                                  const FilePath& path,
                                                                  const CancellationCheck& cancelled);

    /// The same for a file that is open for reading, from its current position. `path` is only used in the
    /// error.
    static Result<std::string, HashError> computeSHA256(ReadableFile& file, const FilePath& path,
                                                        const CancellationCheck& cancelled);

    /// The same for a file that is being written. It is read back from its start through the descriptor that
    /// wrote it. `path` is only used in the error.
    static Result<std::string, HashError> computeSHA256(WritableFile& file, const FilePath& path,
                                                        std::size_t bytesPerRead,
                                                        const CancellationCheck& cancelled);
};

} // namespace lumeo
