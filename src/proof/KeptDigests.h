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

/// Digests of an archive's files that were read from its device, kept between one look at it and the next.
/// One counts only while the file has the size, the times and the inode that it had. Used by one thread.
class KeptDigests {
public:
    struct Digest {
        std::string digest; ///< SHA-256, 64 lower-case hex digits
        Instant readAt;     ///< when the file was read
    };

    /// Where the user's are.
    static FilePath userFolder();

    /// Those of the archive `root`, which one file in `folder` keeps; none where it cannot be read. An empty
    /// `folder` means that there is no place for them. `fileSystem` must outlive this object.
    KeptDigests(FileSystem& fileSystem, const FilePath& folder, const FilePath& root);

    /// The digest of the file `name` below the root, which is as `status` says now.
    [[nodiscard]] std::optional<Digest> find(std::string_view name, const FileStatus& status) const;

    /// `status` is of the file as it was before it was read.
    void keep(std::string_view name, const FileStatus& status, std::string digest, Instant readAt);

    /// Forgets files that are not among `names`, and writes the rest down.
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
    FilePath file_; ///< empty where there is no place
    FilePath root_;
    std::unordered_map<std::string, Row, TextHash, std::equal_to<>> rows_;
};

} // namespace lumeo
