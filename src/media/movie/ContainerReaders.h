#pragma once

#include "media/movie/MovieProperties.h"

#include <optional>

namespace lumeo {

class FileWindow;

// One reader for each family of movie containers. Each gives nothing when the file is not of its
// family, and what it could read when the file breaks off. They fill everything but
// commonCreationDates. Calls on different files may run at the same time.
//
// The families that carry a recording date are walked here: libavformat gives no date for ASF, opens
// no Matroska or ASF file that breaks off after its header, gives no size for MPEG-4 and H.263 video
// in MP4 without decoding, and reads every sample table of a long movie (megabytes). All others,
// which know only duration and size, are left to it, in a process of its own: see ForeignContainer.

/// QuickTime, MP4 and 3GP.
std::optional<MovieProperties> readIsoMovie(FileWindow& file);

/// Matroska and WebM.
std::optional<MovieProperties> readMatroskaMovie(FileWindow& file);

/// ASF and WMV.
std::optional<MovieProperties> readAsfMovie(FileWindow& file);

/// AVI.
std::optional<MovieProperties> readAviMovie(FileWindow& file);

/// A container's own creation time: `count` units of `unitsPerSecond` since `epoch`. Absent on 1904-01-01 and
/// 1970-01-01, since those days are what an unset clock counts from; a count of 0 is unset, and one beyond
/// the year 9999 is damage.
std::optional<Instant> containerDate(Instant epoch, std::int64_t count, std::int64_t unitsPerSecond);

/// Adds it to the metadata.
void addContainerDate(MovieProperties& movie, std::optional<Instant> date);

} // namespace lumeo
