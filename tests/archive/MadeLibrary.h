#pragma once

#include "model/MediaItem.h"
#include "platform/FileSystem.h"
#include "platform/LocalCalendar.h"
#include "scan/ScanProgress.h"

#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace lumeo {

/// What a scan is to say of one file of a made library, and where the file belongs.
struct MadeMedia {
    MediaType mediaType = MediaType::photo;
    DateSourceType dateSource = DateSourceType::unknown;
    std::optional<Instant> captureDate;
    std::string folder = "_Unknown Date"; ///< in the archive, by year and month
    std::int64_t size = 0;
};

/// A library as people have them, with the answers known beforehand: dates in metadata, in names and
/// nowhere; what is no media; housekeeping, hidden files and links; names of any bytes; counters of
/// cameras that began anew in each folder, so that names meet in the archive; copies of the same file.
/// The same count makes the same library. Keep the time zone as it was when it was made.
class MadeLibrary {
public:
    /// Makes about `fileCount` files below `root`.
    MadeLibrary(FileSystem& fileSystem, const FilePath& root, int fileCount);

    /// A folder, a link to a folder, and a single file.
    std::vector<FilePath> sources;

    /// By location, as a walk from its source gives it.
    std::map<FilePath, MadeMedia> media;

    /// Counters alone: no name, no duration, as at the end.
    ScanProgress counters;

private:
    void addMember(int number);
    void addDatedPhoto(const std::string& name);
    void addLink(const std::string& name, const char* target);

    /// A file whose content begins with `content` counts as media; it differs from all others.
    void keep(const std::string& name, const std::string& content, MadeMedia fact);
    void keepWhole(const std::string& name, const std::string& content, MadeMedia fact);
    /// A file that is no media.
    void write(const std::string& name, const std::string& content);
    std::string padded(std::string content);
    WallTime someTime();
    unsigned upTo(unsigned limit) { return static_cast<unsigned>(random_() % limit); }

    FileSystem& fileSystem_;
    std::mt19937 random_; // NOLINT(cert-msc32-c,cert-msc51-cpp): the same library every time
    FilePath folder_;     ///< where the next file goes
    std::string lastPhoto_;
    MadeMedia lastPhotoFact_;
    std::string lastPhotoName_;
};

} // namespace lumeo
