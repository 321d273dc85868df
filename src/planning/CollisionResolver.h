#pragma once

#include "platform/FileSystem.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>

namespace lumeo {

/// Chooses each item's destination. No two items of a plan get the same one, and no existing file would be
/// overwritten. An existing file can be an item's destination only if it has the same content.
///
/// One resolver serves one planning pass, on one thread. It remembers the names that it gave out and the
/// facts that it learned about the disk. So no name is looked up twice, no existing file is hashed twice, and
/// a pass over files that all have one name stays linear. It does not see changes on the disk during the
/// pass. The transfer never replaces anything, so it has the last word.
class CollisionResolver {
public:
    /// `fileSystem` must outlive the resolver. `disk` tells which names count as equal and how long they may
    /// be.
    explicit CollisionResolver(const FileSystem& fileSystem, const DiskTraits& disk = {});
    ~CollisionResolver();
    CollisionResolver(const CollisionResolver&) = delete;
    CollisionResolver& operator=(const CollisionResolver&) = delete;

    /// Goes through `desired`, an absolute path, then name_2.ext, name_3.ext and so on. Returns the first one
    /// that holds a file with the digest `sourceHash`, or else the first free one. Such files are searched up
    /// to the first free name; if `desired` itself is free, the numbered names after it are searched too. A
    /// link counts as taken, wherever it leads. `size` is the source's size in bytes: an existing file of
    /// another size is not read. Without `sourceHash` no file can be identical. An existing file that cannot
    /// be read counts as different, and so does every file once `stop` is requested.
    FilePath resolveUniqueDestination(const FilePath& desired, std::int64_t size,
                                      const std::optional<std::string>& sourceHash,
                                      const std::stop_token& stop = {});

    /// True when a file of this size has the name `desired` or one of its numbered names. The source's digest
    /// is then worth computing before the source gets a place.
    [[nodiscard]] bool meetsFileOfSize(const FilePath& desired, std::int64_t size);

private:
    struct Memory;

    std::unique_ptr<Memory> memory_;
};

} // namespace lumeo
