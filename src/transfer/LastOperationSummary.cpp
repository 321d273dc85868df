#include "transfer/LastOperationSummary.h"

#include <algorithm>

namespace lumeo {
namespace {

std::int64_t count(const OperationManifest& manifest, TransactionStatus status) {
    return std::count_if(manifest.items.begin(), manifest.items.end(),
                         [status](const FileTransactionItem& item) { return item.status == status; });
}

} // namespace

LastOperationSummary LastOperationSummary::of(const OperationManifest& manifest, Instant completedAt) {
    LastOperationSummary summary;
    summary.operationType = manifest.operationType;
    summary.processedCount = std::ssize(manifest.items);
    summary.verifiedCount = count(manifest, TransactionStatus::verified);
    summary.skippedCount = count(manifest, TransactionStatus::skipped);
    summary.errorCount = count(manifest, TransactionStatus::failed);
    summary.bytesTransferred = manifest.totalTransferredBytes;
    summary.duration = manifest.durationSeconds;
    summary.destinationDisplayName = replacingInvalidUtf8(manifest.destinationRoot.lastComponent());
    summary.completedAt = completedAt;
    return summary;
}

std::string encode(const LastOperationSummary& summary) {
    JsonWriter writer;
    writer.set("operationType", summary.operationType);
    writer.set("processedCount", summary.processedCount);
    writer.set("verifiedCount", summary.verifiedCount);
    writer.set("skippedCount", summary.skippedCount);
    writer.set("errorCount", summary.errorCount);
    writer.set("bytesTransferred", summary.bytesTransferred);
    writer.set("duration", summary.duration);
    writer.set("destinationDisplayName", summary.destinationDisplayName);
    writer.set("completedAt", summary.completedAt);
    return std::move(writer).take().dump();
}

std::optional<LastOperationSummary> decodeLastOperationSummary(std::string_view json) {
    const Json parsed = Json::parse(json, nullptr, /*allow_exceptions=*/false);
    JsonReader reader(parsed);
    LastOperationSummary summary;
    reader.require("operationType", summary.operationType);
    reader.require("processedCount", summary.processedCount);
    reader.require("verifiedCount", summary.verifiedCount);
    reader.require("skippedCount", summary.skippedCount);
    reader.require("errorCount", summary.errorCount);
    reader.require("bytesTransferred", summary.bytesTransferred);
    reader.require("duration", summary.duration);
    reader.require("destinationDisplayName", summary.destinationDisplayName);
    reader.require("completedAt", summary.completedAt);
    if (reader.error()) {
        return std::nullopt;
    }
    return summary;
}

} // namespace lumeo
