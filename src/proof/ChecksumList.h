#pragma once

#include "platform/FileSystem.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace lumeo {

/// One file of an archive and its content when it was proven.
struct Checksum {
    std::string name;   ///< below the archive's root, bytes as on disk
    std::string digest; ///< SHA-256, 64 lower-case hex digits
    friend bool operator==(const Checksum&, const Checksum&) = default;
};

/// What a list tells.
struct ListedChecksums {
    std::vector<Checksum> checksums;
    std::int64_t damagedLines = 0; ///< lines that name no file below the archive's root
    bool endsInALine = true;       ///< false when the last line may have been cut short
};

/// The list of digests in an archive's root. It has the form that sha256sum writes and checks, so the archive
/// can be proven without this program. Any thread may call.
struct ChecksumList {
    static constexpr std::string_view fileName = "SHA256SUMS";

    /// A line of the list, with its line end.
    static std::string line(const Checksum& checksum);
    /// The content of a line, without its line end. Absent when it is not a line of the list.
    static std::optional<Checksum> parse(std::string_view line);

    /// Of several lines for one file the last one counts. Fails with ENOENT when there is no list.
    static FileResult<ListedChecksums> read(const FileSystem& fileSystem, const FilePath& root);

    /// Appends what the list does not have yet, and returns when it is on the device. Existing lines stay,
    /// even those of files that are gone.
    static FileResult<void> extend(FileSystem& fileSystem, const FilePath& root,
                                   std::span<const Checksum> checksums);

    /// Removes the lines for which `isGone` returns true. The list is replaced completely or not at all. A
    /// list without any line left is removed. Does nothing when there is no list.
    static FileResult<void> withdraw(FileSystem& fileSystem, const FilePath& root,
                                     const std::function<bool(const Checksum&)>& isGone);
};

} // namespace lumeo
