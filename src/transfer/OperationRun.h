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

/// The records of one run: its journal, its counters and its rates. Used by the thread of the run.
class OperationRun {
public:
    /// Starts the clock of the run. `clock` must outlive it.
    OperationRun(std::span<const MediaItem> items, OperationManifest head, const Clock& clock);

    /// Sets `item` as the current one.
    void take(const MediaItem& item) { progress_.currentItemName = item.fileName(); }

    /// True when this run has archived an identical file, so that the content of `item` is in the archive
    /// under that name.
    [[nodiscard]] bool isRepeatedDuplicate(const MediaItem& item) const;

    /// Each of these returns the record as it is in the journal.
    const FileTransactionItem& addSkippedDuplicate(const MediaItem& item);
    const FileTransactionItem& addTransferred(const MediaItem& item, FileTransactionItem record);
    void addMissingDestination();

    /// Notes a sentence that a person should know about the run as a whole.
    void note(std::string sentence) { manifest_.notices.push_back(std::move(sentence)); }

    /// Changes verified records at or below folders whose names may not be durable to failed ones, and
    /// returns them.
    std::vector<FileTransactionItem> withdraw(const std::vector<UnflushedFolder>& unflushed);

    /// Updates the rates after a transferred file. Returns the progress to publish, if it is time.
    std::optional<OperationProgress> sample(bool isPaused);

    [[nodiscard]] const OperationManifest& manifest() const noexcept { return manifest_; }

    /// Ends the run. Returns the last progress to publish.
    OperationProgress finish(bool isCancelled);

    /// The journal. finish() must be called before.
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
