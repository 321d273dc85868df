#include "dates/DateResolver.h"

#include "platform/LocalCalendar.h"

#include <chrono>
#include <initializer_list>

namespace lumeo {
namespace {

struct Candidate {
    std::optional<Instant> date;
    DateSourceType source;
    DateConfidence confidence;
};

std::optional<std::string> plausibilityWarning(Instant date, const Clock& clock) {
    constexpr int firstPlausibleYear = 1981;
    constexpr std::chrono::hours tolerance(48);
    const WallTime wall = LocalCalendar::components(date);
    // A camera whose battery was empty starts again at 1970, 1980 or 1 January 2000.
    const bool isNewYear2000 = wall.year == 2000 && wall.month == 1 && wall.day == 1;
    if (wall.year < firstPlausibleYear || isNewYear2000) {
        return "Possible incorrect camera clock (" + std::to_string(wall.year) + ")";
    }
    if (date > clock.now() + tolerance) {
        return "Date is set in the future";
    }
    return std::nullopt;
}

ResolvedDateResult firstOf(std::initializer_list<Candidate> candidates, const Clock& clock) {
    for (const Candidate& candidate : candidates) {
        if (candidate.date) {
            return {candidate.date, candidate.source, candidate.confidence,
                    plausibilityWarning(*candidate.date, clock)};
        }
    }
    return {};
}

} // namespace

ResolvedDateResult DateResolver::resolveDate(MediaType mediaType, const CandidateDates& candidates,
                                             const DateResolverOptions& options, const Clock& clock) {
    using enum DateSourceType;
    const Candidate capture{candidates.metadataCaptureDate, exifDateTimeOriginal, DateConfidence::high};
    const Candidate digitized{candidates.metadataCreateDate, exifCreateDate, DateConfidence::high};
    const Candidate tiff{candidates.tiffDateTime, tiffDateTime, DateConfidence::high};
    const Candidate video{candidates.videoCreationDate, quickTimeMetadataDate, DateConfidence::high};
    const Candidate name{candidates.filenameDate, filename, DateConfidence::medium};
    const Candidate created{options.allowFilesystemCreationDate ? candidates.filesystemCreationDate
                                                                : std::nullopt,
                            filesystemCreationDate, DateConfidence::low};
    const Candidate modified{options.allowFilesystemModificationDate ? candidates.filesystemModificationDate
                                                                     : std::nullopt,
                             filesystemModificationDate, DateConfidence::low};
    switch (mediaType) {
    case MediaType::photo:
    case MediaType::rawPhoto:
        return firstOf({capture, digitized, tiff, name, created, modified}, clock);
    case MediaType::video:
        return firstOf({video, name, created, modified}, clock);
    case MediaType::other:
        return firstOf({name, created}, clock);
    }
    return {};
}

} // namespace lumeo
