#pragma once

#include "platform/FileSystem.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace lumeo {

/// One file of an archive and what it held when it was proven.
struct Checksum {
    std::string name;   ///< below the archive's root, bytes as on disk
    std::string digest; ///< SHA-256, 64 lower-case hex digits
    friend bool operator==(const Checksum&, const Checksum&) = default;
};

/// The list of digests in an archive's root, in the form that sha256sum writes and checks: so the archive
/// can be proven without this program. Any thread may call.
struct ChecksumList {
    static constexpr std::string_view fileName = "SHA256SUMS";

    /// A line of the list, with its end.
    static std::string line(const Checksum& checksum);
    /// What a line, without its end, says; absent when it is none.
    static std::optional<Checksum> parse(std::string_view line);

    /// Of several lines for one file the last one. Fails with ENOENT where there is no list.
    static FileResult<std::vector<Checksum>> read(const FileSystem& fileSystem, const FilePath& root);

    /// Adds what the list does not say yet, at its end, and returns when that is on the device. Lines that
    /// are there stay, also those of files that are not.
    static FileResult<void> extend(FileSystem& fileSystem, const FilePath& root,
                                   std::span<const Checksum> checksums);

    /// Takes the lines out that `isGone` says are of no use any more. The list is replaced whole or not at
    /// all. Where there is none, nothing happens.
    static FileResult<void> withdraw(FileSystem& fileSystem, const FilePath& root,
                                     const std::function<bool(const Checksum&)>& isGone);
};

} // namespace lumeo
