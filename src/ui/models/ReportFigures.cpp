#include "ui/models/ReportFigures.h"

#include "platform/LocalCalendar.h"

#include <algorithm>
#include <cctype>
#include <map>

namespace lumeo {
namespace {

/// The user's calendar is too slow for a million questions, so known years are remembered. Days around New
/// Year, where time zones can surprise, are looked up one by one.
class Years {
public:
    int yearOf(Instant instant) {
        const auto known = std::ranges::find_if(
            known_, [instant](const Span& span) { return span.begin <= instant && instant < span.end; });
        if (known != known_.end()) {
            return known->year;
        }
        const int year = LocalCalendar::components(instant).year;
        const auto begin = LocalCalendar::compose({.year = year, .month = 1, .day = 3});
        const auto end = LocalCalendar::compose({.year = year, .month = 12, .day = 30});
        if (begin && end && *begin <= instant && instant < *end) {
            known_.push_back({*begin, *end, year});
        }
        return year;
    }

private:
    struct Span {
        Instant begin;
        Instant end;
        int year;
    };
    std::vector<Span> known_;
};

std::string upperCased(std::string text) {
    std::ranges::transform(text, text.begin(), [](unsigned char c) {
        return static_cast<char>(std::toupper(c)); // the coded word, which is ASCII
    });
    return text;
}

void addRecords(ReportFigures& figures, const OperationManifest& manifest) {
    figures.transferredBytes = manifest.totalTransferredBytes;
    figures.durationSeconds = manifest.durationSeconds;
    figures.mode = upperCased(manifest.operationType);
    for (const FileTransactionItem& record : manifest.items) {
        figures.organized += record.status == TransactionStatus::verified ? 1 : 0;
        figures.skipped += record.status == TransactionStatus::skipped ? 1 : 0;
        figures.failed += record.status == TransactionStatus::failed ? 1 : 0;
    }
}

} // namespace

ReportFigures ReportFigures::of(const OperationManifest* manifest, std::span<const MediaItem> items) {
    ReportFigures figures;
    if (manifest != nullptr) {
        addRecords(figures, *manifest);
    }
    Years years;
    std::map<int, std::int64_t> filesOfYear;
    for (const MediaItem& item : items) {
        figures.photos += item.mediaType == MediaType::photo ? 1 : 0;
        figures.videos += item.mediaType == MediaType::video ? 1 : 0;
        if (item.resolvedDate) {
            ++filesOfYear[years.yearOf(*item.resolvedDate)];
        } else {
            ++figures.undated;
        }
    }
    for (const auto& [year, count] : filesOfYear) {
        figures.timeline.push_back({std::to_string(year), count});
    }
    if (figures.undated > 0) {
        figures.timeline.push_back({"Unknown", figures.undated});
    }
    std::ranges::sort(figures.timeline, {}, &Year::label);
    return figures;
}

} // namespace lumeo
