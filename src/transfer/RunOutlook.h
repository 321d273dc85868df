#pragma once

#include "model/MediaItem.h"
#include "transfer/ArchiveHold.h"
#include "transfer/TransferError.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace lumeo {

/// Tells, after a file of a run has failed, whether any of the remaining files can still succeed. A fault of
/// one file tells nothing about the next. A disk that is full or gone does. Used by the thread of the run.
class RunOutlook {
public:
    /// All must outlive the outlook. `items` are the items of the run, in its order.
    RunOutlook(FileSystem& fileSystem, const ArchiveHold& archive, std::span<const FilePath> sourceRoots,
               std::span<const MediaItem> items);

    /// Why none of the items from `next` on can succeed after the one before failed with `error`: one
    /// sentence for a person. Absent when one of them may succeed.
    std::optional<std::string> hopelessness(std::size_t next, const TransferError& error);

private:
    struct Source {
        FilePath root;
        std::optional<std::uint64_t> device; ///< when the run started
    };

    [[nodiscard]] bool isArchiveGone() const;
    bool isFullForAll(std::size_t next);
    bool areSourcesGone(std::size_t next);
    [[nodiscard]] bool hasGone(const Source& source) const;

    FileSystem& fileSystem_;
    const ArchiveHold& archive_;
    std::span<const MediaItem> items_;
    std::vector<Source> sources_;
    std::vector<std::int64_t> smallestFrom_; ///< of each item and those after it; made when needed
};

} // namespace lumeo
