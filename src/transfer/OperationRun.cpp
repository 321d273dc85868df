#include "transfer/OperationRun.h"

#include <algorithm>
#include <utility>

namespace lumeo {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::nanoseconds samplingInterval = 500ms;
constexpr std::chrono::nanoseconds publicationInterval = 200ms;
constexpr std::int64_t publicationCount = 10;

double inSeconds(std::chrono::nanoseconds duration) {
    return std::chrono::duration<double>(duration).count();
}

} // namespace

OperationRun::OperationRun(std::span<const MediaItem> items, OperationManifest head, const Clock& clock)
    : clock_(clock), start_(clock.elapsed()), lastSample_(start_), manifest_(std::move(head)) {
    progress_.totalFiles = static_cast<std::int64_t>(items.size());
    for (const MediaItem& item : items) {
        progress_.totalBytes += item.fileSize;
    }
}

bool OperationRun::isRepeatedDuplicate(const MediaItem& item) const {
    return item.exactDuplicateGroupID && archivedGroups_.contains(*item.exactDuplicateGroupID);
}

const FileTransactionItem& OperationRun::addSkippedDuplicate(const MediaItem& item) {
    FileTransactionItem record = newRecord(item, item.plannedDestinationURL.value_or(FilePath()));
    record.status = TransactionStatus::skipped;
    record.verificationResult = "Skipped (Exact Duplicate)";
    ++progress_.skippedCount;
    ++progress_.processedCount;
    return manifest_.items.emplace_back(std::move(record));
}

void OperationRun::addMissingDestination() {
    ++progress_.errorsCount;
    ++progress_.processedCount;
}

const FileTransactionItem& OperationRun::addTransferred(const MediaItem& item, FileTransactionItem record) {
    ++progress_.processedCount;
    // Its identical copies may be left out only now. If this file had failed, they could be the last whole
    // ones.
    if (item.exactDuplicateGroupID && record.status != TransactionStatus::failed) {
        archivedGroups_.insert(*item.exactDuplicateGroupID);
    }
    switch (record.status) {
    case TransactionStatus::verified:
        ++progress_.verifiedCount;
        progress_.transferredBytes += record.size;
        bytesSinceSample_ += record.size;
        break;
    case TransactionStatus::skipped:
        ++progress_.skippedCount;
        break;
    default:
        ++progress_.errorsCount;
        break;
    }
    return manifest_.items.emplace_back(std::move(record));
}

std::vector<FileTransactionItem> OperationRun::withdraw(const std::vector<UnflushedFolder>& unflushed) {
    std::vector<FileTransactionItem> withdrawn;
    if (unflushed.empty()) {
        return withdrawn;
    }
    for (FileTransactionItem& record : manifest_.items) {
        if (record.status != TransactionStatus::verified) {
            continue;
        }
        const auto refused = std::find_if(unflushed.begin(), unflushed.end(), [&](const auto& one) {
            return one.endangers(record.destinationPath);
        });
        if (refused != unflushed.end()) {
            fail(record, refused->error.message());
            --progress_.verifiedCount;
            ++progress_.errorsCount;
            progress_.transferredBytes -= record.size;
            withdrawn.push_back(record);
        }
    }
    return withdrawn;
}

std::optional<OperationProgress> OperationRun::sample(bool isPaused) {
    const std::chrono::nanoseconds now = clock_.elapsed();
    updateRates(now);
    const bool isDue = progress_.processedCount % publicationCount == 0 || !lastPublication_ ||
                       now - *lastPublication_ >= publicationInterval;
    if (!isDue) {
        return std::nullopt;
    }
    lastPublication_ = now;
    OperationProgress published = progress_;
    published.isPaused = isPaused;
    published.elapsedSeconds = inSeconds(now - start_);
    return published;
}

void OperationRun::updateRates(std::chrono::nanoseconds now) {
    if (const std::chrono::nanoseconds interval = now - lastSample_; interval >= samplingInterval) {
        progress_.currentThroughputBytesPerSec = static_cast<double>(bytesSinceSample_) / inSeconds(interval);
        bytesSinceSample_ = 0;
        lastSample_ = now;
    }
    if (const std::chrono::nanoseconds elapsed = now - start_; elapsed > samplingInterval) {
        const double average = static_cast<double>(progress_.transferredBytes) / inSeconds(elapsed);
        progress_.averageThroughputBytesPerSec = average;
        if (average > 0) {
            const std::int64_t left =
                std::max<std::int64_t>(0, progress_.totalBytes - progress_.transferredBytes);
            progress_.estimatedSecondsRemaining = static_cast<double>(left) / average;
        }
    }
}

OperationProgress OperationRun::finish(bool isCancelled) {
    progress_.isCancelled = isCancelled;
    progress_.isCompleted = !isCancelled;
    progress_.elapsedSeconds = inSeconds(clock_.elapsed() - start_);
    manifest_.totalTransferredBytes = progress_.transferredBytes;
    manifest_.durationSeconds = progress_.elapsedSeconds;
    manifest_.isCancelled = isCancelled;
    return progress_;
}

} // namespace lumeo
