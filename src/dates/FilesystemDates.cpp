#include "dates/FilesystemDates.h"

#include "dates/DateResolver.h"

namespace lumeo {
namespace {

/// A creation date after the last change only tells when the file was copied to this disk.
bool isDayOfCopy(const MediaItem& item) {
    return item.filesystemCreationDate && item.filesystemModificationDate &&
           *item.filesystemCreationDate > *item.filesystemModificationDate;
}

} // namespace

bool FilesystemDates::isOne(DateSourceType source) {
    return source == DateSourceType::filesystemCreationDate ||
           source == DateSourceType::filesystemModificationDate;
}

void FilesystemDates::apply(std::span<MediaItem> items, const Clock& clock) {
    const DateResolverOptions options{.allowFilesystemCreationDate = true,
                                      .allowFilesystemModificationDate = true};
    for (MediaItem& item : items) {
        if (item.resolvedDate) {
            continue;
        }
        CandidateDates candidates;
        candidates.filesystemModificationDate = item.filesystemModificationDate;
        if (!isDayOfCopy(item)) {
            candidates.filesystemCreationDate = item.filesystemCreationDate;
        }
        const ResolvedDateResult resolved =
            DateResolver::resolveDate(item.mediaType, candidates, options, clock);
        item.resolvedDate = resolved.date;
        item.dateSource = resolved.source;
        item.dateConfidence = resolved.confidence;
        if (resolved.warning) {
            item.dateSuspiciousWarning = SharedText(*resolved.warning);
            item.scanWarnings.push_back(*resolved.warning);
        }
    }
}

void FilesystemDates::remove(std::span<MediaItem> items) {
    for (MediaItem& item : items) {
        if (!isOne(item.dateSource)) {
            continue;
        }
        item.resolvedDate = std::nullopt;
        item.dateSource = DateSourceType::unknown;
        item.dateConfidence = DateConfidence::unknown;
        if (item.dateSuspiciousWarning) {
            std::erase(item.scanWarnings, item.dateSuspiciousWarning->str());
            item.dateSuspiciousWarning = std::nullopt;
        }
    }
}

} // namespace lumeo
