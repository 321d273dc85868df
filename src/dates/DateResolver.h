#pragma once

#include "model/MediaItem.h"
#include "platform/Clock.h"

#include <optional>
#include <string>

namespace lumeo {

/// Whether file-system dates may be used as a last resort.
struct DateResolverOptions {
    bool allowFilesystemCreationDate = false;
    bool allowFilesystemModificationDate = false;
    friend bool operator==(const DateResolverOptions&, const DateResolverOptions&) = default;
};

/// The dates that a file offers. A date is absent when the file does not offer it.
struct CandidateDates {
    std::optional<Instant> metadataCaptureDate;
    std::optional<Instant> metadataCreateDate;
    std::optional<Instant> videoCreationDate;
    std::optional<Instant> tiffDateTime;
    std::optional<Instant> filenameDate; ///< from FilenameDateParser; the caller keeps it as well
    std::optional<Instant> filesystemCreationDate;
    std::optional<Instant> filesystemModificationDate;
};

struct ResolvedDateResult {
    std::optional<Instant> date;
    DateSourceType source = DateSourceType::unknown; ///< `unknown` when there is no date
    DateConfidence confidence = DateConfidence::unknown;
    std::optional<std::string> warning; ///< in English; set when the date looks like a wrong camera clock
    friend bool operator==(const ResolvedDateResult&, const ResolvedDateResult&) = default;
};

/// Chooses a media file's capture date among its candidates. Any thread may call.
struct DateResolver {
    /// Ignores candidates that do not belong to `mediaType`, even when they are present. `clock` tells which
    /// dates are in the future.
    static ResolvedDateResult resolveDate(MediaType mediaType, const CandidateDates& candidates,
                                          const DateResolverOptions& options, const Clock& clock);
};

} // namespace lumeo
