#pragma once

#include "platform/FileSystem.h"
#include "platform/TextHash.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace lumeo {

/// Digests of an archive's files that were read from its device. They are kept from one check to the next. A
/// digest is valid only while the file has the same size, times and inode. Used by one thread.
class KeptDigests {
public:
    struct Digest {
        std::string digest; ///< SHA-256, 64 lower-case hex digits
        Instant readAt;     ///< when the file was read
    };

    /// The folder of the user's digests.
    static FilePath userFolder();

    /// The digests of the archive `root`, which are in one file in `folder`. Empty when it cannot be read. An
    /// empty `folder` means that there is no place for them. `fileSystem` must outlive this object.
    KeptDigests(FileSystem& fileSystem, const FilePath& folder, const FilePath& root);

    /// The digest of the file `name` below the root, whose current status is `status`.
    [[nodiscard]] std::optional<Digest> find(std::string_view name, const FileStatus& status) const;

    /// `status` is the status before the file was read.
    void keep(std::string_view name, const FileStatus& status, std::string digest, Instant readAt);

    /// Forgets files that are not among `names`, and saves the rest.
    FileResult<void> save(const std::unordered_set<std::string>& names);

private:
    struct Row {
        std::string digest;
        std::int64_t size = 0;
        std::int64_t modified = 0; ///< microseconds
        std::int64_t changed = 0;  ///< microseconds
        std::uint64_t inode = 0;
        std::int64_t readAt = 0; ///< microseconds
    };

    static Row rowOf(const FileStatus& status);
    void read(std::string_view line);

    FileSystem& fileSystem_;
    FilePath file_; ///< empty when there is no place
    FilePath root_;
    std::unordered_map<std::string, Row, TextHash, std::equal_to<>> rows_;
};

} // namespace lumeo
