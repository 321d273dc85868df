#include "archive/MadeLibrary.h"

#include "samples/TinyMovies.h"
#include "samples/TinyPhotos.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include <unistd.h>

namespace lumeo {
namespace {

constexpr int filesAFolder = 50;

std::string digits(int value, int width = 2) {
    const std::string plain = std::to_string(value);
    return std::string(static_cast<std::size_t>(std::max(0, width - static_cast<int>(plain.size()))), '0') +
           plain;
}

/// "20210314", with `separator` between the fields.
std::string dayText(const WallTime& time, const std::string& separator) {
    return digits(time.year) + separator + digits(time.month) + separator + digits(time.day);
}

std::string clockText(const WallTime& time, const std::string& separator) {
    return digits(time.hour) + separator + digits(time.minute) + separator + digits(time.second);
}

std::string exifText(const WallTime& time) {
    return dayText(time, ":") + " " + clockText(time, ":");
}

/// A name as cameras number their files: "IMG_0042.JPG".
std::string counted(const std::string& prefix, int number, const std::string& extension) {
    return prefix + digits(number % filesAFolder, 4) + extension;
}

MadeMedia fact(MediaType type, DateSourceType source, const WallTime& time) {
    constexpr std::array months{"January", "February", "March",     "April",   "May",      "June",
                                "July",    "August",   "September", "October", "November", "December"};
    const std::string year = digits(time.year);
    return {type, source, LocalCalendar::compose(time),
            year + "/" + year + "-" + digits(time.month) + " " +
                months.at(static_cast<std::size_t>(time.month - 1))};
}

const std::vector<std::string> oddNames{"caf\xE9",     "two\nlines",
                                        " blanks ",    "\"quotes\", and; more",
                                        "100%",        "\xF0\x9F\x8C\xBB \xE6\x9D\xB1\xE4\xBA\xAC",
                                        "back\\slash", "-rf *"};
const std::vector<std::string> housekeeping{".DS_Store",
                                            "Thumbs.db",
                                            "._IMG_1.JPG",
                                            "desktop.ini",
                                            "$RECYCLE.BIN/a.jpg",
                                            ".Trashes/a.jpg",
                                            "Library.PhotosLibrary/originals/a.jpg"};
const std::vector<std::string> otherExtensions{".pdf", ".txt", ".AAE", "", ".xmp"};

} // namespace

MadeLibrary::MadeLibrary(FileSystem& fileSystem, const FilePath& root, int fileCount)
    : fileSystem_(fileSystem) {
    const FilePath disk = root.appending("disk");
    const FilePath card = root.appending("link to card");
    const FilePath lone = root.appending("lone/IMG_0001.JPG");
    sources = {disk, card, lone};
    static_cast<void>(fileSystem_.createFolders(root.appending("volumes/card")));
    folder_ = root;
    addLink("link to card", "volumes/card");
    for (int number = 0; number < fileCount; ++number) {
        const FilePath& source = number % 3 == 0 ? card : disk;
        folder_ = source.appending("DCIM/" + std::to_string(100 + number / filesAFolder) + "MEDIA");
        addMember(number);
    }
    // The path is longer than the system accepts in one call. The name leaves room only for "_2".
    folder_ = disk;
    for (char level = 'a'; level < 'z'; ++level) {
        folder_ = folder_.appending(std::string(200, level));
    }
    addDatedPhoto(std::string(249, 'x').append(".JPG"));
    folder_ = lone.parent();
    addDatedPhoto(std::string(lone.lastComponent()));
    --counters.totalScannedCount; // not part of a walked folder
    counters.isCompleted = true;
}

void MadeLibrary::addMember(int number) {
    const auto turn = [number](const std::vector<std::string>& texts) {
        return texts[static_cast<std::size_t>(number / 20) % texts.size()];
    };
    WallTime time = someTime();
    TinyPhoto raw;
    TinyMovie movie;
    switch (number % 20) {
    case 0:
        return keep("IMG-" + dayText(time, "") + "-" + clockText(time, "") + counted(" ", number, ".jpeg"),
                    tinyJpeg(), fact(MediaType::photo, DateSourceType::filename, time));
    case 1:
        return keep(counted("scan ", number, ".png.jpg"), tinyJpeg(), {});
    case 2: // a date without a time means noon
        time = {time.year, time.month, time.day, 12, 0, 0};
        return keepWhole(dayText(time, "-") + counted(" ", number, ".heic"),
                         number % 40 == 2 ? "" : padded("no picture"),
                         fact(MediaType::photo, DateSourceType::filename, time));
    case 3:
    case 4:
        movie.headerTime = LocalCalendar::compose(time);
        return keep(counted(number % 2 == 0 ? "MVI_" : "clip", number, number % 2 == 0 ? ".MP4" : ".mov"),
                    tinyQuickTime(movie) + movieBox("free", padded({})),
                    fact(MediaType::video, DateSourceType::quickTimeMetadataDate, time));
    case 5:
    case 6:
        raw.dateTime = exifText(time);
        return keep(counted("RAW_", number, ".dng"), tinyTiff(raw),
                    fact(MediaType::rawPhoto, DateSourceType::tiffDateTime, time));
    case 7:
    case 8:
        if (!lastPhotoName_.empty()) {
            return keepWhole(counted("backup ", number, "/") + lastPhotoName_, lastPhoto_, lastPhotoFact_);
        }
        break;
    case 9:
        return addDatedPhoto(turn(oddNames) + ".JPG");
    case 10:
        return write(turn(housekeeping), padded(tinyJpeg()));
    case 11:
        ++counters.totalScannedCount;
        ++counters.unsupportedCount;
        return write(counted("paper ", number, turn(otherExtensions)), padded("2020-01-01"));
    case 12:
        return addLink(counted("link ", number, ".jpg"), number % 40 == 12 ? "../100MEDIA" : "dangling");
    case 13:
        return addDatedPhoto(counted(".hidden_", number, ".jpg"));
    default:
        break;
    }
    addDatedPhoto(counted("IMG_", number, ".JPG"));
}

void MadeLibrary::addDatedPhoto(const std::string& name) {
    const WallTime time = someTime();
    TinyPhoto photo;
    photo.dateTimeOriginal = exifText(time);
    photo.dateTime = "2024:12:24 18:00:00"; // the date of an edit, not of the photo
    photo.make = "Maker";
    photo.model = "Model " + std::to_string(upTo(5));
    lastPhoto_ = padded(tinyJpeg(photo));
    lastPhotoFact_ = fact(MediaType::photo, DateSourceType::exifDateTimeOriginal, time);
    lastPhotoName_ = name;
    keepWhole(name, lastPhoto_, lastPhotoFact_);
}

void MadeLibrary::addLink(const std::string& name, const char* target) {
    static_cast<void>(fileSystem_.createFolders(folder_));
    if (symlink(target, folder_.appending(name).c_str()) != 0) {
        throw std::runtime_error("a link of the library cannot be made");
    }
}

void MadeLibrary::keep(const std::string& name, const std::string& content, MadeMedia fact) {
    keepWhole(name, padded(content), std::move(fact));
}

void MadeLibrary::keepWhole(const std::string& name, const std::string& content, MadeMedia fact) {
    fact.size = static_cast<std::int64_t>(content.size());
    ++counters.totalScannedCount;
    counters.totalBytesScanned += fact.size;
    counters.photosCount += fact.mediaType == MediaType::photo ? 1 : 0;
    counters.videosCount += fact.mediaType == MediaType::video ? 1 : 0;
    counters.rawCount += fact.mediaType == MediaType::rawPhoto ? 1 : 0;
    media.emplace(folder_.appending(name), std::move(fact));
    write(name, content);
}

void MadeLibrary::write(const std::string& name, const std::string& content) {
    const FilePath path = folder_.appending(name);
    static_cast<void>(fileSystem_.createFolders(path.parent()));
    auto file = fileSystem_.createFile(path, FileAccess::everyone); // no name may occur twice
    if (!file || !(*file)->write(std::as_bytes(std::span(content)))) {
        throw std::runtime_error("a file of the library cannot be made: " + path.displayText());
    }
}

/// Adds bytes that no reader looks at, so that sizes and contents differ from file to file. Some files are
/// larger than the chunk of a copy.
std::string MadeLibrary::padded(std::string content) {
    const std::size_t padding = upTo(400) == 0 ? (1U << 20U) + upTo(1U << 20U) : upTo(4096);
    while (content.size() % 4 != 0 || content.size() < padding) {
        content.push_back(static_cast<char>(random_()));
    }
    return content;
}

WallTime MadeLibrary::someTime() {
    const auto field = [this](unsigned from, unsigned to) {
        return static_cast<int>(from + upTo(to - from + 1));
    };
    return {field(2003, 2006), field(1, 12), field(1, 28), field(3, 23), field(0, 59), field(0, 59)};
}

} // namespace lumeo
