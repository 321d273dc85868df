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

/// What a scan should report about one file of a made library, and the folder where the file belongs.
struct MadeMedia {
    MediaType mediaType = MediaType::photo;
    DateSourceType dateSource = DateSourceType::unknown;
    std::optional<Instant> captureDate;
    std::string folder = "_Unknown Date"; ///< in the archive, by year and month
    std::int64_t size = 0;
};

/// A library as people have them, whose correct results are known. It has dates in metadata, dates in names,
/// and files without a date. It has files that are not media, system files, hidden files and links, and names
/// with any bytes. Camera counters that start again in each folder make names collide in the archive. Some
/// files are copies of others. The same count makes the same library. The time zone must stay what it was
/// when the library was made.
class MadeLibrary {
public:
    /// Makes about `fileCount` files below `root`.
    MadeLibrary(FileSystem& fileSystem, const FilePath& root, int fileCount);

    /// A folder, a link to a folder, and a single file.
    std::vector<FilePath> sources;

    /// By location, as a walk from the source gives it.
    std::map<FilePath, MadeMedia> media;

    /// Only the counters, as at the end: no name, no duration.
    ScanProgress counters;

private:
    void addMember(int number);
    void addDatedPhoto(const std::string& name);
    void addLink(const std::string& name, const char* target);

    /// Writes a media file whose content starts with `content`. It differs from all other files.
    void keep(const std::string& name, const std::string& content, MadeMedia fact);
    void keepWhole(const std::string& name, const std::string& content, MadeMedia fact);
    /// Writes a file that is not media.
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
