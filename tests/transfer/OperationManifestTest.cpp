#include "transfer/OperationManifest.h"

#include <gtest/gtest.h>

namespace lumeo {
namespace {

FileTransactionItem fullRecord() {
    return {Uuid::random(),
            FilePath("/card/IMG_1.jpg"),
            FilePath("/archive/2021/IMG_1.jpg"),
            std::int64_t{1} << 40U,
            std::string(64, 'a'),
            std::string(64, 'b'),
            TransactionStatus::failed,
            codedEpoch + std::chrono::microseconds(1'500'000),
            "Date found in photo",
            "Verified (SHA-256 Match)",
            "Something “else”"};
}

TEST(OperationManifestTest, RoundTripsWithEveryFieldAndWithNoneAndTheBytesOfPathsThatAreNotText) {
    OperationManifest manifest;
    EXPECT_EQ(*decodeOperationManifest(encode(manifest)), manifest);
    manifest = {Uuid::random(),
                codedEpoch,
                "move",
                {FilePath("/plain"), FilePath("/card")},
                FilePath("/archive"),
                {fullRecord(), {}},
                1'234'567'890,
                12.5,
                false};
    const Json json = encode(manifest);
    EXPECT_EQ(*decodeOperationManifest(json), manifest);
    EXPECT_EQ(json["items"][0]["status"], "failed");
    EXPECT_EQ(json["items"][0]["dateResolved"], 1.5);
    EXPECT_FALSE(json["items"][1].contains("sourceHash") || json.contains("destinationRootURL"));

    manifest.sourceRoots[1] = FilePath("/card\xFF");
    manifest.destinationRoot = FilePath("/archive\xFE");
    manifest.items[0].originalPath = FilePath("/card\xFF/\xC3(.jpg\n");
    manifest.items[0].destinationPath = FilePath("/archive\xFE/\xC3(.jpg\n");
    const std::string text = encode(manifest).dump();
    EXPECT_TRUE(isValidUtf8(text));
    EXPECT_EQ(*decodeOperationManifest(Json::parse(text)), manifest);
}

TEST(OperationManifestTest, RefusesWhatIsNotWhole) {
    OperationManifest manifest;
    manifest.items = {fullRecord(), fullRecord()};
    const Json whole = encode(manifest);
    const auto expectRefused = [](const Json& json, std::string_view hint) {
        const Decoded<OperationManifest> decoded = decodeOperationManifest(json);
        ASSERT_FALSE(decoded) << hint;
        EXPECT_NE(decoded.error().message().find(hint), std::string::npos) << decoded.error().message();
    };
    for (const char* const key : {"id", "timestamp", "operationType", "sourceRoots", "destinationRoot",
                                  "items", "totalTransferredBytes", "durationSeconds"}) {
        Json without = whole;
        without.erase(key);
        expectRefused(without, key);
    }
    Json wrong = whole;
    wrong["items"][1]["status"] = "Verified";
    expectRefused(wrong, "record number 2");
    wrong = whole;
    wrong["items"] = "none";
    expectRefused(wrong, "items");
    wrong = whole;
    wrong["items"][0]["originalPath"] = std::string("/card/a\0b", 9);
    expectRefused(wrong, "originalPath");
    wrong = whole;
    wrong["sourceRootURLs"] = {"http://example.org"};
    expectRefused(wrong, "sourceRootURLs");
}

} // namespace
} // namespace lumeo
