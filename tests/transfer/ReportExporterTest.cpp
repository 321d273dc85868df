#include "transfer/ReportExporter.h"

#include "dates/LUMEODateFormatters.h"
#include "platform/TextFormat.h"
#include "support/SystemSettings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace lumeo {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

MediaItem mediaItem(std::string path, MediaType type, DateConfidence confidence) {
    MediaItem item;
    item.sourceURL = FilePath(std::move(path));
    item.mediaType = type;
    item.dateConfidence = confidence;
    return item;
}

FileTransactionItem record(std::string from, std::string to, TransactionStatus status) {
    FileTransactionItem record;
    record.originalPath = FilePath(std::move(from));
    record.destinationPath = FilePath(std::move(to));
    record.status = status;
    return record;
}

FileTransactionItem verifiedRecord() {
    FileTransactionItem verified = record("/card/a.jpg", "/archive/2021/a.jpg", TransactionStatus::verified);
    verified.size = 1234567;
    verified.dateResolved = codedEpoch;
    verified.dateSource = "EXIF Original";
    verified.verificationResult = "Verified SHA-256";
    return verified;
}

FileTransactionItem failedRecord() {
    FileTransactionItem failed = record("/card/say \"b\", c.mov", "/archive", TransactionStatus::failed);
    failed.verificationResult = "Half";
    failed.errorMessage = "No, no";
    return failed;
}

OperationManifest manifestOf(std::vector<FileTransactionItem> items) {
    OperationManifest manifest;
    manifest.timestamp = codedEpoch;
    manifest.operationType = "copy";
    manifest.destinationRoot = FilePath("/archive");
    manifest.items = std::move(items);
    manifest.totalTransferredBytes = 1234567;
    manifest.durationSeconds = 61.25;
    return manifest;
}

/// The rows of the CSV without its header.
std::string rowsOf(std::vector<FileTransactionItem> records, const std::vector<MediaItem>& items) {
    const std::string csv = ReportExporter::generateCSV(manifestOf(std::move(records)), items);
    const std::size_t header = csv.find('\n') + 1;
    EXPECT_EQ(csv.substr(0, header), "Original Path,Destination Path,Filename,Size (Bytes),Media Type,"
                                     "Resolved Date,Date Source,Confidence,Duplicate Status,Operation,"
                                     "Verification,Result,Error\n");
    return csv.substr(header);
}

TEST(ReportExporterCsv, HasARowForEachRecordFilledFromJournalAndCatalogue) {
    const ScopedEnvironment english("LC_ALL", "en_US.UTF-8");
    std::vector items{mediaItem("/card/a.jpg", MediaType::rawPhoto, DateConfidence::high)};
    items[0].exactDuplicateGroupID = Uuid::random();
    EXPECT_EQ(rowsOf({verifiedRecord(), failedRecord()}, items),
              "/card/a.jpg,/archive/2021/a.jpg,a.jpg,1234567,RAW Photo,\"" +
                  LUMEODateFormatters::formattedFully(codedEpoch) +
                  "\",EXIF Original,High,Duplicate,copy,Verified SHA-256,verified,\n"
                  "\"/card/say \"\"b\"\", c.mov\",/archive,\"say \"\"b\"\", c.mov\",0,Media,Unknown,Unknown,"
                  "Unknown,Unique,copy,Half,failed,\"No, no\"\n");
    EXPECT_THAT(rowsOf({record("/card/a\rb", "/archive/c\r\nd", TransactionStatus::verified)}, {}),
                StartsWith("/card/a\rb,\"/archive/c\r\nd\",a\rb,0,Media,"))
        << "a carriage return alone is not quoted";
}

TEST(ReportExporterCsv, FindsItemsByTheirExactBytesAndToleratesTwins) {
    // Both names show the same text. Only their bytes differ.
    const MediaItem video = mediaItem("/card/\xfe.jpg", MediaType::video, DateConfidence::medium);
    EXPECT_EQ(rowsOf({record("/card/\xfe.jpg", "/archive/\xfe.jpg", TransactionStatus::skipped)},
                     {mediaItem("/card/\xff.jpg", MediaType::photo, DateConfidence::low), video, video}),
              "/card/\uFFFD.jpg,/archive/\uFFFD.jpg,\uFFFD.jpg,0,Video,Unknown,Unknown,Medium,Unique,"
              "copy,Unverified,skipped,\n");
}

TEST(ReportExporterText, TellsSummaryAndEveryRecordInLinesThatNoNameCanForge) {
    const std::string report = ReportExporter::generateTextReport(
        manifestOf({verifiedRecord(), failedRecord(),
                    record("/card/\xff\n[4] VERIFIED: x", "/archive/\xff.jpg", TransactionStatus::skipped)}),
        std::vector{mediaItem("/card/a.jpg", MediaType::photo, DateConfidence::high),
                    mediaItem("/card/elsewhere.jpg", MediaType::photo, DateConfidence::low)});
    const std::string date = LUMEODateFormatters::formattedFully(codedEpoch);
    EXPECT_THAT(report,
                HasSubstr("\nTimestamp: " + date + "\nOperation Type: COPY\nDestination: /archive\n"));
    EXPECT_THAT(report, HasSubstr(R"(
- Total Files Processed: 3
- Verified Transfers: 1
- Skipped (Duplicates): 1
- Errors / Failures: 1
- Total Transferred: )" + TextFormat::byteCount(1234567) +
                                  R"(
- Total Duration: 61.2 seconds
)"));
    EXPECT_THAT(report, EndsWith(R"(
[1] VERIFIED: a.jpg
    From: /card/a.jpg
    To:   /archive/2021/a.jpg
    Date: )" + date + R"( (EXIF Original)
    Verification: Verified SHA-256

[2] FAILED: say "b", c.mov
    From: /card/say "b", c.mov
    To:   /archive
    Date: Unknown (Unknown)
    Verification: Half
    Error: No, no

[3] SKIPPED: �\n[4] VERIFIED: x
    From: /card/�\n[4] VERIFIED: x
    To:   /archive/�.jpg
    Date: Unknown (Unknown)

)" + std::string(80, '=') + "\nDATES TO CHECK:\n" +
                                 std::string(80, '=') + R"(

- /card/a.jpg
    Date: Unknown (Date unknown, confidence: High)
)"));
}

TEST(ReportExporter, DefaultNamesCarryTheMomentInUtc) {
    EXPECT_EQ(ReportExporter::defaultCSVName(codedEpoch),
              "LUMEO_Organization_Report_2001-01-01T00:00:00Z.csv");
    EXPECT_EQ(ReportExporter::defaultTextReportName(codedEpoch),
              "LUMEO_Organization_Summary_2001-01-01T00:00:00Z.txt");
}

} // namespace
} // namespace lumeo
