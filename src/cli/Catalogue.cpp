#include "cli/Catalogue.h"

#include "cli/Terminal.h"
#include "dates/LUMEODateFormatters.h"
#include "model/MediaItemCoding.h"
#include "platform/TextFormat.h"

#include <iostream>

namespace lumeo::cli {
namespace {

std::string_view kindName(MediaType type) {
    switch (type) {
    case MediaType::photo:
        return "photo";
    case MediaType::video:
        return "video";
    case MediaType::rawPhoto:
        return "RAW";
    case MediaType::other:
        break;
    }
    return "other";
}

void printLine(const Json& json) {
    // Text that is not UTF-8 should not get this far. If it does, it shows as a replacement character.
    std::cout << json.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n';
}

Cells cellsOf(const MediaItem& item) {
    std::string file = printable(item.sourceURL.bytes());
    if (item.dateSuspiciousWarning) {
        file += "  (" + item.dateSuspiciousWarning->str() + ")";
    }
    return {LUMEODateFormatters::formattedFully(item.resolvedDate),
            std::string(userFriendlyLabel(item.dateSource)),
            std::string(userFriendlyLabel(item.dateConfidence)),
            std::string(kindName(item.mediaType)),
            TextFormat::byteCount(item.fileSize),
            std::move(file)};
}

} // namespace

std::string scanFacts(const ScanProgress& progress) {
    std::string facts = "Scanning  " + TextFormat::number(progress.totalScannedCount) + " files  " +
                        TextFormat::byteCount(progress.totalBytesScanned);
    if (progress.scanDurationSeconds > 0.5) {
        const double perSecond =
            static_cast<double>(progress.totalScannedCount) / progress.scanDurationSeconds;
        facts += "  " + TextFormat::number(static_cast<std::int64_t>(perSecond)) + " files/s";
    }
    return facts;
}

void printCounters(const ScanProgress& progress) {
    const std::vector<Cells> rows{
        {"Photos", TextFormat::number(progress.photosCount)},
        {"RAW photos", TextFormat::number(progress.rawCount)},
        {"Videos", TextFormat::number(progress.videosCount)},
        {"Size of all media", TextFormat::byteCount(progress.totalBytesScanned)},
        {"Files examined", TextFormat::number(progress.totalScannedCount)},
        {"Of no supported type", TextFormat::number(progress.unsupportedCount)},
        {"Unreadable entries", TextFormat::number(progress.errorsCount)},
    };
    printTable(rows.size(), [&rows](std::size_t row) { return rows[row]; });
}

void printItems(const std::vector<MediaItem>& items) {
    printTable(items.size() + 1, [&items](std::size_t row) {
        return row == 0 ? Cells{"Date", "Where from", "Confidence", "Kind", "Size", "File"}
                        : cellsOf(items[row - 1]);
    });
}

void printPlan(const std::vector<MediaItem>& items) {
    for (const MediaItem& item : items) {
        std::cout << printable(item.sourceURL.bytes()) << "\n    -> "
                  << (item.plannedDestinationURL ? printable(item.plannedDestinationURL->bytes())
                                                 : std::string("no destination"))
                  << "\n    " << LUMEODateFormatters::formattedFully(item.resolvedDate) << ", "
                  << userFriendlyLabel(item.dateSource)
                  << ", confidence: " << userFriendlyLabel(item.dateConfidence) << '\n';
        for (const std::string& warning : item.scanWarnings) {
            std::cout << "    ! " << printable(warning) << '\n';
        }
    }
}

void printJson(const std::vector<MediaItem>& items, const ScanProgress& progress) {
    for (const MediaItem& item : items) {
        printLine(encode(item));
    }
    printLine(Json{{"scanProgress", encode(progress)}});
}

} // namespace lumeo::cli
