#pragma once

#include "media/movie/MovieProperties.h"

#include <optional>

namespace lumeo {

class FileWindow;

// One reader for each family of movie containers. A reader returns nothing when the file is of another
// family. When the file is cut short, it returns what it could read. The readers fill everything except
// commonCreationDates. Calls on different files may run at the same time.
//
// These readers are for the families that carry a recording date. libavformat is not enough for them. It
// gives no date for ASF. It does not open a Matroska or ASF file that ends after its header. It gives no size
// for MPEG-4 and H.263 video in MP4 without decoding, and it reads every sample table of a long movie, which
// can be megabytes. It reads all other families, which have only duration and size, in a separate process:
// see ForeignContainer.

/// QuickTime, MP4 and 3GP.
std::optional<MovieProperties> readIsoMovie(FileWindow& file);

/// Matroska and WebM.
std::optional<MovieProperties> readMatroskaMovie(FileWindow& file);

/// ASF and WMV.
std::optional<MovieProperties> readAsfMovie(FileWindow& file);

/// AVI.
std::optional<MovieProperties> readAviMovie(FileWindow& file);

/// A container's own creation time: `count` units of `unitsPerSecond` since `epoch`. Absent on 1904-01-01 and
/// 1970-01-01, because clocks that nobody has set start there. A count of 0 means unset, and a date after the
/// year 9999 means damage.
std::optional<Instant> containerDate(Instant epoch, std::int64_t count, std::int64_t unitsPerSecond);

/// Adds the date to the metadata.
void addContainerDate(MovieProperties& movie, std::optional<Instant> date);

} // namespace lumeo
