#include "transfer/SourceProof.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>

namespace lumeo {
namespace {

using Texts = std::unordered_set<std::string_view>;

bool isProven(const FileTransactionItem& record) {
    const bool ended =
        record.status == TransactionStatus::verified || record.status == TransactionStatus::skipped;
    return ended && record.sourceHash && record.sourceHash == record.destinationHash;
}

/// The run may have left out an identical copy. It is in the archive under the name of the file that the run
/// took, if that one is there.
bool hasTwin(const MediaItem& item, const Texts& digests) {
    return item.exactDuplicateGroupID && item.sha256Hash && digests.contains(*item.sha256Hash);
}

} // namespace

std::vector<SourceProof> proveSources(const OperationManifest& run, std::span<const MediaItem> items) {
    Texts proven;
    Texts skipped;
    Texts digests;
    for (const FileTransactionItem& record : run.items) {
        if (isProven(record)) {
            proven.insert(record.originalPath.bytes());
            digests.insert(*record.sourceHash);
        } else if (record.status == TransactionStatus::skipped) {
            skipped.insert(record.originalPath.bytes());
        }
    }
    std::vector<SourceProof> proofs;
    for (const FilePath& root : run.sourceRoots) {
        proofs.push_back({root, 0, 0});
    }
    for (const MediaItem& item : items) {
        const std::string& path = item.sourceURL.bytes();
        const auto source = std::ranges::find_if(
            proofs, [&item](const SourceProof& one) { return item.sourceURL.liesIn(one.root); });
        if (source != proofs.end()) {
            ++source->mediaFiles;
            const bool isThere = proven.contains(path) || (skipped.contains(path) && hasTwin(item, digests));
            source->inArchive += isThere ? 1 : 0;
        }
    }
    return proofs;
}

} // namespace lumeo
