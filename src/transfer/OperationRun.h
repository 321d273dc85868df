#pragma once

#include "model/MediaItem.h"
#include "platform/Clock.h"
#include "transfer/FolderFlusher.h"
#include "transfer/OperationManifest.h"
#include "transfer/OperationProgress.h"

#include <chrono>
#include <optional>
#include <span>
#include <unordered_set>
#include <vector>

namespace lumeo {

/// The books of one run: its journal, its counters and its rates. Used by the thread that runs it.
class OperationRun {
public:
    /// Starts the clock of the run. `clock` must outlive it.
    OperationRun(std::span<const MediaItem> items, OperationManifest head, const Clock& clock);

    /// `item` is the one at work from now on.
    void take(const MediaItem& item) { progress_.currentItemName = item.fileName(); }

    /// True when the content of `item` is in the archive under the name of an identical file of this run.
    [[nodiscard]] bool isRepeatedDuplicate(const MediaItem& item) const;

    /// Each of them gives the record as it stands in the journal.
    const FileTransactionItem& addSkippedDuplicate(const MediaItem& item);
    const FileTransactionItem& addTransferred(const MediaItem& item, FileTransactionItem record);
    void addMissingDestination();

    /// Notes what a person should know of the run as a whole: a sentence.
    void note(std::string sentence) { manifest_.notices.push_back(std::move(sentence)); }

    /// Turns the verified records at or below folders whose names may not be durable into failed ones, and
    /// gives those.
    std::vector<FileTransactionItem> withdraw(const std::vector<UnflushedFolder>& unflushed);

    /// Brings the rates up to date after a transferred file. Gives the record to publish, if it is time.
    std::optional<OperationProgress> sample(bool isPaused);

    [[nodiscard]] const OperationManifest& manifest() const noexcept { return manifest_; }

    /// Closes the books. Gives the last record to publish.
    OperationProgress finish(bool isCancelled);

    /// The journal, once finish() was called.
    OperationManifest takeManifest() && { return std::move(manifest_); }

private:
    void updateRates(std::chrono::nanoseconds now);

    const Clock& clock_;
    std::chrono::nanoseconds start_;
    std::chrono::nanoseconds lastSample_;
    std::optional<std::chrono::nanoseconds> lastPublication_;
    std::int64_t bytesSinceSample_ = 0;
    std::unordered_set<Uuid> archivedGroups_; ///< groups of identical files with a member in the archive
    OperationProgress progress_;
    OperationManifest manifest_;
};

} // namespace lumeo
