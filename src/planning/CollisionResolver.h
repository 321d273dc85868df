#pragma once

#include "platform/FileSystem.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>

namespace lumeo {

/// Picks each item's destination so that no two of a plan share one and no existing file would be
/// overwritten; only an existing file with the very same content may be an item's destination.
///
/// One resolver serves one planning pass, on one thread. It remembers what it gave out and what it
/// learned of the disk: no name is looked up twice, no existing file hashed twice, and a pass over
/// files that all share one name stays linear. What changes on the disk meanwhile goes unseen; the
/// transfer, which never replaces anything, has the last word.
class CollisionResolver {
public:
    /// `fileSystem` must outlive the resolver. `disk` says which names are one and how long they may be.
    explicit CollisionResolver(const FileSystem& fileSystem, const DiskTraits& disk = {});
    ~CollisionResolver();
    CollisionResolver(const CollisionResolver&) = delete;
    CollisionResolver& operator=(const CollisionResolver&) = delete;

    /// The first of `desired`, an absolute path, name_2.ext, name_3.ext, … that holds a file whose digest is
    /// `sourceHash`; else the first that is free. Holders are looked for up to the first free name, behind
    /// `desired` also when that one is. A link is taken, whatever it leads to. `size` is the source's, in
    /// bytes: an existing file of another size is not read. Without `sourceHash` no identity can be shown. An
    /// existing file that cannot be read, or a requested `stop`, counts as different.
    FilePath resolveUniqueDestination(const FilePath& desired, std::int64_t size,
                                      const std::optional<std::string>& sourceHash,
                                      const std::stop_token& stop = {});

    /// True when a file of this size stands where `desired` or one of its numbered names would lead, so
    /// that the source's digest is worth making before it is given a place.
    [[nodiscard]] bool meetsFileOfSize(const FilePath& desired, std::int64_t size);

private:
    struct Memory;

    std::unique_ptr<Memory> memory_;
};

} // namespace lumeo
