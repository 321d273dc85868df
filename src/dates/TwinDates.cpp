#include "dates/TwinDates.h"

#include "dates/FilesystemDates.h"

#include <unordered_map>

namespace lumeo {
namespace {

bool isDated(const MediaItem& item) {
    return item.resolvedDate && !FilesystemDates::isOne(item.dateSource);
}

void takeDate(const MediaItem& twin, MediaItem& item) {
    FilesystemDates::remove({&item, 1});
    item.resolvedDate = twin.resolvedDate;
    item.dateSource = twin.dateSource;
    item.dateConfidence = twin.dateConfidence;
    item.dateSuspiciousWarning = twin.dateSuspiciousWarning;
    item.scanWarnings.emplace_back("Date taken from an identical file");
    if (item.dateSuspiciousWarning) {
        item.scanWarnings.push_back(item.dateSuspiciousWarning->str());
    }
}

} // namespace

void TwinDates::apply(std::span<MediaItem> items) {
    std::unordered_map<Uuid, const MediaItem*> datedTwins;
    for (const MediaItem& item : items) {
        if (item.exactDuplicateGroupID && isDated(item)) {
            const MediaItem*& twin = datedTwins[*item.exactDuplicateGroupID];
            twin = twin == nullptr || item.dateConfidence > twin->dateConfidence ? &item : twin;
        }
    }
    for (MediaItem& item : items) {
        if (item.exactDuplicateGroupID && !isDated(item)) {
            if (const auto twin = datedTwins.find(*item.exactDuplicateGroupID); twin != datedTwins.end()) {
                takeDate(*twin->second, item);
            }
        }
    }
}

} // namespace lumeo
