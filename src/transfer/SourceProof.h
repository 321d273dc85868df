#pragma once

#include "model/MediaItem.h"
#include "transfer/OperationManifest.h"

#include <cstdint>
#include <span>
#include <vector>

namespace lumeo {

/// How much of one source is proven to be in the archive by a run.
struct SourceProof {
    FilePath root;
    std::int64_t mediaFiles = 0; ///< that the scan found in it
    std::int64_t inArchive = 0;  ///< of these: copied and verified, or found there with the same content
    friend bool operator==(const SourceProof&, const SourceProof&) = default;
};

/// One result for each source of the run, in its order, only from the run's records. An item in two sources
/// counts for the first. `items` are the items of the run. Any thread may call.
std::vector<SourceProof> proveSources(const OperationManifest& run, std::span<const MediaItem> items);

} // namespace lumeo
