#include "transfer/ReportExporter.h"

#include "dates/DateDoubt.h"
#include "dates/LUMEODateFormatters.h"
#include "platform/DateText.h"
#include "platform/TextFormat.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>
#include <unordered_map>

namespace lumeo {
namespace {

constexpr std::string_view csvHeader =
    "Original Path,Destination Path,Filename,Size (Bytes),Media Type,Resolved Date,Date Source,"
    "Confidence,Duplicate Status,Operation,Verification,Result,Error\n";

std::string_view textOr(const std::optional<std::string>& text, std::string_view fallback) {
    return text ? std::string_view(*text) : fallback;
}

std::string upperCased(std::string_view ascii) {
    std::string upper(ascii);
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return upper;
}

/// The decimal separator is a point in every C locale.
std::string withOneDecimal(double value) {
    std::array<char, 320> digits{}; // the largest double has 309 digits before its point
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, 1);
    return {digits.data(), end.ptr};
}

/// Rows of fields separated by commas. A field is quoted where a reader would otherwise split it.
class CsvRow {
public:
    explicit CsvRow(std::string& document) : document_(document) {}

    CsvRow& field(std::string_view text) {
        if (!isFirst_) {
            document_ += ',';
        }
        isFirst_ = false;
        if (text.find_first_of(",\"\n") == std::string_view::npos) {
            document_ += text;
            return *this;
        }
        document_ += '"';
        for (const char c : text) {
            document_.append(c == '"' ? 2 : 1, c);
        }
        document_ += '"';
        return *this;
    }

    void end() { document_ += '\n'; }

private:
    std::string& document_;
    bool isFirst_ = true;
};

using ItemsByPath = std::unordered_map<std::string_view, const MediaItem*>;

ItemsByPath itemsByPath(std::span<const MediaItem> items) {
    ItemsByPath byPath;
    byPath.reserve(items.size());
    for (const MediaItem& item : items) {
        byPath.try_emplace(item.sourceURL.bytes(), &item);
    }
    return byPath;
}

void appendRow(std::string& document, const FileTransactionItem& record, const MediaItem* item,
               std::string_view operation) {
    CsvRow(document)
        .field(record.originalPath.bytes())
        .field(record.destinationPath.bytes())
        .field(record.originalPath.lastComponent())
        .field(std::to_string(record.size))
        .field(item != nullptr ? userFriendlyLabel(item->mediaType) : "Media")
        .field(LUMEODateFormatters::formattedFully(record.dateResolved))
        .field(textOr(record.dateSource, "Unknown"))
        .field(userFriendlyLabel(item != nullptr ? item->dateConfidence : DateConfidence::unknown))
        .field(item != nullptr && item->exactDuplicateGroupID ? "Duplicate" : "Unique")
        .field(operation)
        .field(textOr(record.verificationResult, "Unverified"))
        .field(rawValue(record.status))
        .field(textOr(record.errorMessage, ""))
        .end();
}

/// Lines of a label and its text. Line feeds in a file's name must not start records of their own.
class TextLines {
public:
    TextLines& line(std::string_view label, std::string_view text = {}) {
        document_.append(label).append(printable(text)) += '\n';
        return *this;
    }
    TextLines& rule() { return line(std::string(80, '=')); }

    [[nodiscard]] std::string take() && { return std::move(document_); }

private:
    std::string document_;
};

void appendSummary(TextLines& report, const OperationManifest& manifest) {
    const auto countOf = [&](TransactionStatus status) {
        return std::to_string(std::ranges::count(
            manifest.items, status, [](const FileTransactionItem& record) { return record.status; }));
    };
    report.line("SUMMARY:")
        .line("- Total Files Processed: ", std::to_string(manifest.items.size()))
        .line("- Verified Transfers: ", countOf(TransactionStatus::verified))
        .line("- Skipped (Duplicates): ", countOf(TransactionStatus::skipped))
        .line("- Errors / Failures: ", countOf(TransactionStatus::failed))
        .line("- Total Transferred: ", TextFormat::byteCount(manifest.totalTransferredBytes))
        .line("- Total Duration: ", withOneDecimal(manifest.durationSeconds) + " seconds");
}

void appendBlock(TextLines& report, std::size_t number, const FileTransactionItem& record) {
    report.line("")
        .line("[" + std::to_string(number) + "] " + upperCased(rawValue(record.status)) + ": ",
              record.originalPath.lastComponent())
        .line("    From: ", record.originalPath.bytes())
        .line("    To:   ", record.destinationPath.bytes())
        .line("    Date: ", LUMEODateFormatters::formattedFully(record.dateResolved) + " (" +
                                std::string(textOr(record.dateSource, "Unknown")) + ")");
    if (record.verificationResult) {
        report.line("    Verification: ", *record.verificationResult);
    }
    if (record.errorMessage) {
        report.line("    Error: ", *record.errorMessage);
    }
}

void appendDoubts(TextLines& report, const OperationManifest& manifest, std::span<const MediaItem> items) {
    const ItemsByPath byPath = itemsByPath(items);
    bool isFirst = true;
    for (const FileTransactionItem& record : manifest.items) {
        const auto found = byPath.find(record.originalPath.bytes());
        if (found == byPath.end() || dateDoubtOf(*found->second) == DateDoubt::none) {
            continue;
        }
        if (std::exchange(isFirst, false)) {
            report.line("").rule().line("DATES TO CHECK:").rule();
        }
        const MediaItem& item = *found->second;
        report.line("").line("- ", record.originalPath.bytes());
        report.line("    Date: ", LUMEODateFormatters::formattedFully(item.resolvedDate) + " (" +
                                      std::string(userFriendlyLabel(item.dateSource)) + ", confidence: " +
                                      std::string(userFriendlyLabel(item.dateConfidence)) + ")");
        if (item.dateSuspiciousWarning) {
            report.line("    Warning: ", item.dateSuspiciousWarning->str());
        }
    }
}

} // namespace

std::string ReportExporter::generateCSV(const OperationManifest& manifest, std::span<const MediaItem> items) {
    const ItemsByPath byPath = itemsByPath(items);
    std::string document(csvHeader);
    for (const FileTransactionItem& record : manifest.items) {
        const auto found = byPath.find(record.originalPath.bytes());
        appendRow(document, record, found == byPath.end() ? nullptr : found->second, manifest.operationType);
    }
    // The whole document is repaired at once. All separators are ASCII, so no ill-formed sequence can swallow
    // one.
    return replacingInvalidUtf8(document);
}

std::string ReportExporter::generateTextReport(const OperationManifest& manifest,
                                               std::span<const MediaItem> items) {
    TextLines report;
    report.rule()
        .line("LUMEO. - Media Organization Report")
        .rule()
        .line("Timestamp: ", LUMEODateFormatters::formattedFully(manifest.timestamp))
        .line("Operation Type: ", upperCased(manifest.operationType))
        .line("Destination: ", manifest.destinationRoot.bytes())
        .line("");
    appendSummary(report, manifest);
    report.line("").rule().line("FILE OPERATIONS AUDIT LOG:").rule();
    for (std::size_t i = 0; i < manifest.items.size(); ++i) {
        appendBlock(report, i + 1, manifest.items[i]);
    }
    appendDoubts(report, manifest, items);
    return std::move(report).take();
}

std::string ReportExporter::defaultCSVName(Instant now) {
    return "LUMEO_Organization_Report_" + DateText::iso8601Utc(now) + ".csv";
}

std::string ReportExporter::defaultTextReportName(Instant now) {
    return "LUMEO_Organization_Summary_" + DateText::iso8601Utc(now) + ".txt";
}

} // namespace lumeo
