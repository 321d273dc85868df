#include "transfer/ReportExporter.h"

#include "dates/LUMEODateFormatters.h"
#include "platform/TextFormat.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace lumeo {
namespace {

using testing::StartsWith;

const std::string header =
    "Original Path,Destination Path,Filename,Size (Bytes),Media Type,Resolved Date,Date Source,"
    "Confidence,Duplicate Status,Operation,Verification,Result,Error\n";

MediaItem mediaItem(std::string path, MediaType type, DateConfidence confidence, bool isDuplicate = false) {
    MediaItem item;
    item.sourceURL = FilePath(std::move(path));
    item.mediaType = type;
    item.dateConfidence = confidence;
    if (isDuplicate) {
        item.exactDuplicateGroupID = Uuid::random();
    }
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
    FileTransactionItem failed = record("/card/say \"b\", c.mov", "", TransactionStatus::failed);
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

/// What the CSV holds for a text that may hold separators.
std::string field(const std::string& text) {
    return text.find(',') == std::string::npos ? text : "\"" + text + "\"";
}

std::string withoutHeader(const std::string& csv) {
    EXPECT_THAT(csv, StartsWith(header));
    return csv.substr(header.size());
}

TEST(ReportExporterCsv, HasARowForEachRecordFilledFromJournalAndCatalogue) {
    const std::vector items{mediaItem("/card/a.jpg", MediaType::rawPhoto, DateConfidence::high, true)};
    const std::string date = field(LUMEODateFormatters::formattedFully(codedEpoch));

    const std::string rows =
        withoutHeader(ReportExporter::generateCSV(manifestOf({verifiedRecord(), failedRecord()}), items));

    EXPECT_EQ(rows, "/card/a.jpg,/archive/2021/a.jpg,a.jpg,1234567,RAW Photo," + date +
                        ",EXIF Original,High,Duplicate,copy,Verified SHA-256,verified,\n"
                        "\"/card/say \"\"b\"\", c.mov\",,\"say \"\"b\"\", c.mov\",0,Media,Unknown,Unknown,"
                        "Unknown,Unique,copy,Half,failed,\"No, no\"\n");
}

TEST(ReportExporterCsv, FindsItemsByTheirExactBytesAndToleratesTwins) {
    // Both names show as the same text; only the bytes tell them apart.
    const std::vector items{
        mediaItem("/card/\xff.jpg", MediaType::photo, DateConfidence::low),
        mediaItem("/card/\xfe.jpg", MediaType::video, DateConfidence::medium),
        mediaItem("/card/\xfe.jpg", MediaType::video, DateConfidence::medium),
    };
    const std::string rows = withoutHeader(ReportExporter::generateCSV(
        manifestOf({record("/card/\xfe.jpg", "/archive/\xfe.jpg", TransactionStatus::skipped)}), items));

    EXPECT_EQ(rows, "/card/\uFFFD.jpg,/archive/\uFFFD.jpg,\uFFFD.jpg,0,Video,Unknown,Unknown,Medium,Unique,"
                    "copy,Unverified,skipped,\n");
}

TEST(ReportExporterCsv, CarriageReturnAloneIsNotQuoted) {
    const std::string rows = withoutHeader(ReportExporter::generateCSV(
        manifestOf({record("/card/a\rb", "/archive/c\r\nd", TransactionStatus::verified)}), {}));
    EXPECT_THAT(rows, StartsWith("/card/a\rb,\"/archive/c\r\nd\",a\rb,0,Media,"));
}

TEST(ReportExporterText, TellsSummaryAndEveryRecord) {
    const std::string rule = std::string(80, '=') + "\n";
    const std::string date = LUMEODateFormatters::formattedFully(codedEpoch);
    std::vector records{
        verifiedRecord(), failedRecord(),
        record("/card/\xff\n[4] VERIFIED: x", "/archive/\xff.jpg", TransactionStatus::skipped)};

    EXPECT_EQ(ReportExporter::generateTextReport(manifestOf(std::move(records))),
              rule + "LUMEO. - Media Organization Report\n" + rule + "Timestamp: " + date +
                  "\n"
                  "Operation Type: COPY\n"
                  "Destination: /archive\n"
                  "\n"
                  "SUMMARY:\n"
                  "- Total Files Processed: 3\n"
                  "- Verified Transfers: 1\n"
                  "- Skipped (Duplicates): 1\n"
                  "- Errors / Failures: 1\n"
                  "- Total Transferred: " +
                  TextFormat::byteCount(1234567) +
                  "\n"
                  "- Total Duration: 61.2 seconds\n"
                  "\n" +
                  rule + "FILE OPERATIONS AUDIT LOG:\n" + rule +
                  "\n"
                  "[1] VERIFIED: a.jpg\n"
                  "    From: /card/a.jpg\n"
                  "    To:   /archive/2021/a.jpg\n"
                  "    Date: " +
                  date +
                  " (EXIF Original)\n"
                  "    Verification: Verified SHA-256\n"
                  "\n"
                  "[2] FAILED: say \"b\", c.mov\n"
                  "    From: /card/say \"b\", c.mov\n"
                  "    To:   \n"
                  "    Date: Unknown (Unknown)\n"
                  "    Verification: Half\n"
                  "    Error: No, no\n"
                  "\n"
                  "[3] SKIPPED: \uFFFD\\n[4] VERIFIED: x\n"
                  "    From: /card/\uFFFD\\n[4] VERIFIED: x\n"
                  "    To:   /archive/\uFFFD.jpg\n"
                  "    Date: Unknown (Unknown)\n");
}

TEST(ReportExporter, DefaultNamesCarryTheMomentInUtc) {
    EXPECT_EQ(ReportExporter::defaultCSVName(codedEpoch),
              "LUMEO_Organization_Report_2001-01-01T00:00:00Z.csv");
    EXPECT_EQ(ReportExporter::defaultTextReportName(codedEpoch),
              "LUMEO_Organization_Summary_2001-01-01T00:00:00Z.txt");
}

} // namespace
} // namespace lumeo
