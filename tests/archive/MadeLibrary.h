#pragma once

#include "model/MediaItem.h"
#include "platform/FileSystem.h"
#include "platform/LocalCalendar.h"
#include "scan/ScanProgress.h"
#include "support/TinyPhotos.h"

#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace lumeo {

/// What a scan is to say of one file of a made library, and where the file belongs.
struct MadeMedia {
    MediaType mediaType = MediaType::photo;
    std::optional<Instant> captureDate;
    DateSourceType dateSource = DateSourceType::unknown;
    std::string folder; ///< in the archive, by year and month
    std::int64_t size = 0;
};

/// A library as people have them, with the answers known beforehand: dates in metadata, in names and
/// nowhere; what is no media; housekeeping, hidden files and links; names of any bytes; counters of
/// cameras that began anew in each folder, so that names meet in the archive; copies of the same file.
/// The same count and seed make the same library. Keep the time zone as it was when it was made.
class MadeLibrary {
public:
    /// Makes about `fileCount` files below `root`.
    MadeLibrary(FileSystem& fileSystem, const FilePath& root, int fileCount, unsigned seed = 1);

    /// A folder, a link to a folder, and a single file.
    std::vector<FilePath> sources;

    /// By location, as a walk from its source gives it.
    std::map<FilePath, MadeMedia> media;

    /// Counters alone: no name, no duration, as at the end.
    ScanProgress counters;

private:
    void addMember(int number);
    void addDatedPhoto(const std::string& name);
    void addPhotoDatedByName(int number);
    void addUndatedPhoto(int number);
    void addBrokenPhoto(int number);
    void addMovie(int number);
    void addRawPhoto(int number);
    void addCopyOfEarlier(int number);
    void addOddlyNamed(int number);
    void addHousekeeping(int number);
    void addUnsupported(int number);
    void addLinks(int number);
    void addLoneFile(const FilePath& path);
    void addDeepFile();

    /// `fact` counts as a media file at `path`.
    void keep(const FilePath& path, const std::string& content, MadeMedia fact);
    void write(const FilePath& path, const std::string& content);
    std::string padded(std::string content);
    WallTime someTime();
    MadeMedia fact(MediaType type, DateSourceType source, const WallTime& time) const;
    unsigned upTo(unsigned limit) { return static_cast<unsigned>(random_() % limit); }

    FileSystem& fileSystem_;
    std::mt19937 random_;
    FilePath folder_; ///< where the next file goes
    std::string lastPhoto_;
    MadeMedia lastPhotoFact_;
    std::string lastPhotoName_;
};

} // namespace lumeo
