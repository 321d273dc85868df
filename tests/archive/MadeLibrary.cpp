#include "archive/MadeLibrary.h"

#include "support/TinyMovies.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include <gtest/gtest.h>
#include <unistd.h>

namespace lumeo {
namespace {

constexpr int filesAFolder = 50;

std::string digits(int value, int width) {
    const std::string plain = std::to_string(value);
    return std::string(static_cast<std::size_t>(std::max(0, width - static_cast<int>(plain.size()))), '0') +
           plain;
}

/// "20210314", each field parted from the next by `separator`.
std::string dayText(const WallTime& time, const std::string& separator) {
    return digits(time.year, 4) + separator + digits(time.month, 2) + separator + digits(time.day, 2);
}

std::string clockText(const WallTime& time, const std::string& separator) {
    return digits(time.hour, 2) + separator + digits(time.minute, 2) + separator + digits(time.second, 2);
}

std::string exifText(const WallTime& time) {
    return dayText(time, ":") + " " + clockText(time, ":");
}

/// As cameras count: "IMG_0042.JPG".
std::string countedName(const std::string& prefix, int number, const std::string& extension) {
    return prefix + digits(number % filesAFolder, 4) + extension;
}

std::string archiveFolder(const WallTime& time) {
    constexpr std::array months{"January", "February", "March",     "April",   "May",      "June",
                                "July",    "August",   "September", "October", "November", "December"};
    const std::string year = digits(time.year, 4);
    return year + "/" + year + "-" + digits(time.month, 2) + " " +
           months.at(static_cast<std::size_t>(time.month - 1));
}

} // namespace

MadeLibrary::MadeLibrary(FileSystem& fileSystem, const FilePath& root, int fileCount, unsigned seed)
    : fileSystem_(fileSystem), random_(seed) {
    const FilePath disk = root.appending("disk");
    const FilePath card = root.appending("link to card");
    const FilePath lone = root.appending("lone/IMG_0001.JPG");
    if (!fileSystem_.createFolders(root.appending("volumes/card")) ||
        symlink("volumes/card", card.c_str()) != 0) {
        throw std::runtime_error("the library cannot be made");
    }
    sources = {disk, card, lone};
    for (int number = 0; number < fileCount; ++number) {
        const FilePath& source = number % 3 == 0 ? card : disk;
        folder_ = source.appending("DCIM/" + std::to_string(100 + number / filesAFolder) + "MEDIA");
        addMember(number);
    }
    folder_ = disk;
    addDeepFile();
    addLoneFile(lone);
    counters.isCompleted = true;
}

void MadeLibrary::addMember(int number) {
    switch (number % 20) {
    case 0:
        return addPhotoDatedByName(number);
    case 1:
        return addUndatedPhoto(number);
    case 2:
        return addBrokenPhoto(number);
    case 3:
    case 4:
        return addMovie(number);
    case 5:
    case 6:
        return addRawPhoto(number);
    case 7:
    case 8:
        return addCopyOfEarlier(number);
    case 9:
        return addOddlyNamed(number);
    case 10:
        return addHousekeeping(number);
    case 11:
        return addUnsupported(number);
    case 12:
        return addLinks(number);
    case 13:
        return addDatedPhoto(countedName(".hidden_", number, ".jpg"));
    default:
        return addDatedPhoto(countedName("IMG_", number, ".JPG"));
    }
}

void MadeLibrary::addDatedPhoto(const std::string& name) {
    const WallTime time = someTime();
    TinyPhoto photo;
    photo.dateTimeOriginal = exifText(time);
    photo.dateTime = "2024:12:24 18:00:00"; // edited later: not when it was taken
    photo.make = "Maker";
    photo.model = "Model " + std::to_string(upTo(5));
    lastPhoto_ = padded(tinyJpeg(photo));
    lastPhotoFact_ = fact(MediaType::photo, DateSourceType::exifDateTimeOriginal, time);
    lastPhotoName_ = name;
    keep(folder_.appending(name), lastPhoto_, lastPhotoFact_);
}

void MadeLibrary::addPhotoDatedByName(int number) {
    const WallTime time = someTime();
    const std::string name =
        "IMG-" + dayText(time, "") + "-" + clockText(time, "") + " " + std::to_string(number) + ".jpeg";
    keep(folder_.appending(name), padded(tinyJpeg()), fact(MediaType::photo, DateSourceType::filename, time));
}

void MadeLibrary::addUndatedPhoto(int number) {
    MadeMedia undated;
    undated.folder = "_Unknown Date";
    keep(folder_.appending(countedName("scan ", number, ".png.jpg")), padded(tinyJpeg()), undated);
}

void MadeLibrary::addBrokenPhoto(int number) {
    WallTime time = someTime();
    const std::string name = dayText(time, "-") + " (" + std::to_string(number) + ").heic";
    time.hour = 12; // a day alone stands for its noon
    time.minute = 0;
    time.second = 0;
    keep(folder_.appending(name), number % 40 == 2 ? "" : padded("no picture"),
         fact(MediaType::photo, DateSourceType::filename, time));
}

void MadeLibrary::addMovie(int number) {
    const WallTime time = someTime();
    TinyMovie movie;
    movie.headerTime = LocalCalendar::compose(time);
    const std::string name =
        number % 2 == 0 ? countedName("MVI_", number, ".MP4") : countedName("clip", number, ".mov");
    keep(folder_.appending(name), tinyQuickTime(movie) + movieBox("free", padded({})),
         fact(MediaType::video, DateSourceType::quickTimeMetadataDate, time));
}

void MadeLibrary::addRawPhoto(int number) {
    const WallTime time = someTime();
    TinyPhoto photo;
    photo.dateTime = exifText(time);
    keep(folder_.appending(countedName("RAW_", number, ".dng")), padded(tinyTiff(photo)),
         fact(MediaType::rawPhoto, DateSourceType::tiffDateTime, time));
}

void MadeLibrary::addCopyOfEarlier(int number) {
    if (lastPhotoName_.empty()) {
        return addDatedPhoto(countedName("IMG_", number, ".JPG"));
    }
    const FilePath path = folder_.appending("backup " + std::to_string(number)).appending(lastPhotoName_);
    keep(path, lastPhoto_, lastPhotoFact_);
}

void MadeLibrary::addOddlyNamed(int number) {
    const std::array<std::string, 8> names{
        "caf\xE9",
        "two\nlines",
        " blanks ",
        "\"quotes\", and; more",
        "\xF0\x9F\x8C\xBB \xE6\x9D\xB1\xE4\xBA\xAC",
        "100%",
        "back\\slash",
        "-rf *",
    };
    addDatedPhoto(names.at(static_cast<std::size_t>(number / 20) % names.size()) + ".JPG");
}

void MadeLibrary::addHousekeeping(int number) {
    const std::array<std::string, 7> names{
        ".DS_Store",
        "Thumbs.db",
        countedName("._IMG_", number, ".JPG"),
        countedName(".Trashes/", number, ".jpg"),
        countedName("Library.PhotosLibrary/originals/", number, ".jpg"),
        countedName("$RECYCLE.BIN/", number, ".jpg"),
        "desktop.ini",
    };
    write(folder_.appending(names.at(static_cast<std::size_t>(number / 20) % names.size())),
          padded(tinyJpeg()));
}

void MadeLibrary::addUnsupported(int number) {
    const std::array<const char*, 5> extensions{".pdf", ".txt", ".AAE", "", ".xmp"};
    const char* const extension = extensions.at(static_cast<std::size_t>(number / 20) % extensions.size());
    write(folder_.appending(countedName("paper ", number, extension)), padded("2020-01-01"));
    ++counters.totalScannedCount;
    ++counters.unsupportedCount;
}

void MadeLibrary::addLinks(int number) {
    const std::string name = countedName("link ", number, ".jpg");
    const char* const target = number % 40 == 12 ? "../100MEDIA" : "dangling";
    static_cast<void>(fileSystem_.createFolders(folder_));
    EXPECT_EQ(symlink(target, folder_.appending(name).c_str()), 0);
}

void MadeLibrary::addLoneFile(const FilePath& path) {
    folder_ = path.parent();
    addDatedPhoto(std::string(path.lastComponent()));
    --counters.totalScannedCount; // no part of a walked folder
}

/// Deeper than any path that the system takes in one piece, with a name that leaves room for "_2" alone.
void MadeLibrary::addDeepFile() {
    for (int level = 0; level < 25; ++level) {
        folder_ = folder_.appending(std::string(200, static_cast<char>('a' + level)));
    }
    addDatedPhoto(std::string(249, 'x') + ".JPG");
}

void MadeLibrary::keep(const FilePath& path, const std::string& content, MadeMedia fact) {
    fact.size = static_cast<std::int64_t>(content.size());
    if (!media.emplace(path, fact).second) {
        throw std::logic_error("a file of the library would be made twice");
    }
    write(path, content);
    ++counters.totalScannedCount;
    counters.totalBytesScanned += fact.size;
    counters.photosCount += fact.mediaType == MediaType::photo ? 1 : 0;
    counters.videosCount += fact.mediaType == MediaType::video ? 1 : 0;
    counters.rawCount += fact.mediaType == MediaType::rawPhoto ? 1 : 0;
}

void MadeLibrary::write(const FilePath& path, const std::string& content) {
    if (!fileSystem_.createFolders(path.parent())) {
        throw std::runtime_error("a folder of the library cannot be made");
    }
    auto file = fileSystem_.createFile(path);
    if (!file || !(*file)->write(std::as_bytes(std::span(content)))) {
        throw std::runtime_error("a file of the library cannot be made: " + path.displayText());
    }
}

/// Bytes that no reader looks at, so that sizes and contents differ from file to file; now and then more
/// than is copied in one piece.
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

MadeMedia MadeLibrary::fact(MediaType type, DateSourceType source, const WallTime& time) const {
    MadeMedia made;
    made.mediaType = type;
    made.captureDate = LocalCalendar::compose(time);
    made.dateSource = source;
    made.folder = archiveFolder(time);
    return made;
}

} // namespace lumeo
