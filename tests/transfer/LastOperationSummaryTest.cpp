#include "transfer/LastOperationSummary.h"

#include <gtest/gtest.h>

namespace lumeo {
namespace {

using namespace std::chrono;
using namespace std::chrono_literals;

OperationManifest manifestInto(const char* destinationRoot) {
    OperationManifest manifest;
    manifest.operationType = "move";
    manifest.destinationRoot = FilePath(destinationRoot);
    manifest.totalTransferredBytes = 6'000'000'000;
    manifest.durationSeconds = 61.25;
    for (const TransactionStatus status :
         {TransactionStatus::verified, TransactionStatus::verified, TransactionStatus::skipped,
          TransactionStatus::failed, TransactionStatus::pending, TransactionStatus::rolledBack}) {
        manifest.items.emplace_back().status = status;
    }
    return manifest;
}

const Instant moment = sys_days(2021y / 3 / 14) + 15h + 30min + 45s + 250ms;

TEST(LastOperationSummary, CountsWhatTheRunDidAndIsStoredAsOneObjectWithTheDateInSecondsSince2001) {
    const LastOperationSummary summary =
        LastOperationSummary::of(manifestInto("/media/Photos \xFF Archive/"), moment);
    const std::string json = encode(summary);
    EXPECT_EQ(json, R"({"operationType":"move","processedCount":6,"verifiedCount":2,"skippedCount":1,)"
                    R"("errorCount":1,"bytesTransferred":6000000000,"duration":61.25,)"
                    R"("destinationDisplayName":"Photos � Archive","completedAt":637428645.25})");
    EXPECT_EQ(decodeLastOperationSummary(json), summary);
}

TEST(LastOperationSummary, IsAbsentWhenTheStoredTextIsNotOne) {
    const std::string json = encode(LastOperationSummary::of(manifestInto("/archive"), moment));
    std::string withoutDuration = json;
    withoutDuration.replace(withoutDuration.find("duration"), 8, "length");
    std::string dateAsText = json;
    dateAsText.replace(dateAsText.find("637428645.25"), 12, "\"2021-03-14\"");
    for (const std::string& text :
         {std::string(), std::string("null"), std::string("[]"), std::string("\xFF{"),
          json.substr(0, json.size() / 2), withoutDuration, dateAsText}) {
        EXPECT_EQ(decodeLastOperationSummary(text), std::nullopt) << text;
    }
}

} // namespace
} // namespace lumeo
