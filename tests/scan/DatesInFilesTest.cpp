#include "platform/CivilTime.h"
#include "platform/DateText.h"
#include "platform/PosixFileSystem.h"
#include "samples/TinyMovies.h"
#include "samples/TinyPhotos.h"
#include "scan/MediaScanner.h"
#include "support/FakeClock.h"
#include "support/SystemSettings.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace lumeo {
namespace {

using namespace std::string_literals;
using enum DateSourceType;

constexpr WallTime afternoon{2021, 3, 14, 15, 30, 45};
constexpr WallTime noon{2021, 3, 14, 12, 0, 0};

/// The instants for the clock in a photo, the clock in a movie, and a text with a zone.
std::optional<Instant> photo(const WallTime& clock) {
    return DateText::photoClock(clock);
}
std::optional<Instant> movie(const WallTime& clock) {
    return LocalCalendar::compose(clock);
}
const std::optional<Instant> inUtc = instantInUtc(afternoon);

/// A file, and the date that should be found in it.
struct Row {
    std::string name; ///< what is special about it, and the extension
    std::string bytes;
    std::optional<Instant> date;
    DateSourceType source = unknown;
};

/// Every row is one file of a folder. All are scanned at once.
void expectDates(const std::vector<Row>& rows) {
    const TempFolder folder;
    for (const Row& row : rows) {
        folder.write(row.name, row.bytes);
    }
    const PosixFileSystem disk;
    const SystemVolumes volumes;
    const FakeClock clock{Instant(std::chrono::sys_days{std::chrono::year{2024} / 6 / 1})};
    MediaScanner scanner(disk, volumes, clock);
    const std::vector<FilePath> roots{folder.path()};
    const std::vector<MediaItem> items = scanner.scan(roots, {});
    ASSERT_EQ(items.size(), rows.size());
    for (const Row& row : rows) {
        const MediaItem& item = *std::ranges::find(items, row.name, &MediaItem::fileName);
        const DateConfidence confidence = row.source == unknown    ? DateConfidence::unknown
                                          : row.source == filename ? DateConfidence::medium
                                                                   : DateConfidence::high;
        EXPECT_EQ(item.resolvedDate, row.date) << row.name;
        EXPECT_EQ(rawValue(item.dateSource), rawValue(row.source)) << row.name;
        EXPECT_EQ(item.dateConfidence, confidence) << row.name;
        EXPECT_FALSE(item.dateSuspiciousWarning) << row.name;
    }
}

TEST(DatesInFiles, AreReadHoweverTheyAreWritten) {
    const ScopedTimeZone zone("Europe/Paris");
    const WallTime early{2004, 1, 2, 9, 5, 1};
    const std::vector<std::pair<std::string, std::optional<Instant>>> writings{
        {"2021:03:14 15:30:45", photo(afternoon)},
        {" \t2021:03:14 15:30:45\r\n", photo(afternoon)},
        {"2021-03-14 15:30:45", photo(afternoon)},
        {"2021/03/14 15:30:45", photo(afternoon)},
        {"2021-03-14T15:30:45", photo(afternoon)},
        {"2021:03:14 15:30", photo({2021, 3, 14, 15, 30})},
        {"2021:03:14 15:30:45.25", *photo(afternoon) + std::chrono::milliseconds(250)},
        {"2021:03:14 16:30:45+01:00", inUtc},
        {"2021-03-14T10:30:45.00-0500", inUtc},
        {"2021-03-14T15:30:45Z", inUtc},
        {"2021-03-14T15:30Z", *inUtc - std::chrono::seconds(45)},
        {"2021:03:14", photo(noon)},
        {"2021.03.14", photo(noon)},
        {"2004: 1: 2  9: 5: 1", photo(early)},
        {"2004:1:2 9:5:1", photo(early)},
    };
    const std::vector<std::string> none{"",
                                        "0000:00:00 00:00:00",
                                        "    :  :     :  :  ",
                                        "a sunny day",
                                        "2021",
                                        "2021:03",
                                        "2021:03:14 15",
                                        "2021:03-14 15:30:45",
                                        "2021:13:14 15:30:45",
                                        "2021:02:29 15:30:45",
                                        "2021:03:14 24:00:00",
                                        "2021:03:14 15:30:60",
                                        "2021:03:14 15:30:451",
                                        "2021:03:14 15:30:45+25:00",
                                        "2021:03:14 15:30:45 nonsense",
                                        "12021:03:14 15:30:45",
                                        "20210314"};
    std::vector<Row> rows;
    const auto fileOf = [](const std::string& text) {
        TinyPhoto made;
        made.dateTimeOriginal = text;
        made.dateTime = "2022:01:01 00:00:00"; // of a later edit
        return tinyJpeg(made);
    };
    for (const auto& [text, date] : writings) {
        rows.push_back({std::to_string(rows.size()) + ".jpg", fileOf(text), date, exifDateTimeOriginal});
    }
    for (const std::string& text : none) {
        rows.push_back(
            {std::to_string(rows.size()) + ".jpg", fileOf(text), photo({2022, 1, 1, 0, 0, 0}), tiffDateTime});
    }
    expectDates(rows);
}

/// Each place holds the correct date, while the places with a lower rank hold another date.
TEST(DatesInFiles, AreFoundWhereverTheyStandInPhotos) {
    const ScopedTimeZone zone("Europe/Paris");
    const std::string edited = R"( xmp:ModifyDate="2022-01-01T00:00:00")";
    const std::string scanned = R"( xmp:CreateDate="2022-01-01T00:00:00")" + edited;
    const std::string xmpOriginal = tinyXmp(R"(exif:DateTimeOriginal="2021-03-14T15:30:45")" + scanned);
    const auto withXmp = [](TinyPhoto made, const std::string& attributes) {
        made.xmpPacket = tinyXmp(attributes);
        return made;
    };
    TinyPhoto original;
    original.dateTimeOriginal = "2021:03:14 15:30:45";
    original.dateTimeDigitized = original.dateTime = "2022:01:01 00:00:00";
    TinyPhoto digitized;
    digitized.dateTimeDigitized = "2021:03:14 15:30:45";
    digitized.dateTime = "2022:01:01 00:00:00";
    TinyPhoto unset;
    unset.dateTimeOriginal = unset.dateTimeDigitized = "0000:00:00 00:00:00";
    TinyPhoto changed;
    changed.dateTime = "2021:03:14 15:30:45";
    TinyPhoto press;
    press.dateTimeDigitized = "2022:01:01 00:00:00";
    press.photoshop = pressFacts("20210314", "163045+0100");
    TinyPhoto pressDay;
    pressDay.photoshop = photoshopResource(0x03ED, "odd") + pressFacts("20210314");
    TinyPhoto pressWithoutDay;
    pressWithoutDay.photoshop = pressFacts("20210300", "163045+0100");
    const std::string others = R"(exif:DateTimeOriginal="1999-01-01T00:00:00" )"
                               R"(photoshop:DateCreated="1999-01-01")";
    const std::string exif = tinyExif(original);
    const std::string jxlStart = movieBox("JXL ", "\r\n\x87\n") + movieBox("ftyp", "jxl \0\0\0\0jxl "s);
    expectDates({
        {"exif.jpg", tinyJpeg(withXmp(original, others)), photo(afternoon), exifDateTimeOriginal},
        {"exif.dng", tinyTiff(original), photo(afternoon), exifDateTimeOriginal},
        {"digitized.jpg", tinyJpeg(withXmp(digitized, scanned)), photo(afternoon), exifCreateDate},
        {"changed.jpg", tinyJpeg(withXmp(changed, edited)), photo(afternoon), tiffDateTime},
        {"xmp exif.jpg",
         tinyJpeg(withXmp(digitized, R"(exif:DateTimeOriginal="2021-03-14T15:30:45" )"
                                     R"(photoshop:DateCreated="1999-01-01")" +
                                         scanned)),
         photo(afternoon), exifDateTimeOriginal},
        {"xmp beside an unset date.jpg",
         tinyJpeg(withXmp(unset, R"(exif:DateTimeOriginal=" 2021-03-14T15:30:45 ")")), photo(afternoon),
         exifDateTimeOriginal},
        {"xmp of what is shown.jpg",
         tinyJpeg(
             withXmp({}, R"(exif:DateTimeOriginal="nonsense" photoshop:DateCreated="2021-03-14")" + scanned)),
         photo(noon), exifDateTimeOriginal},
        {"xmp digitized.tif",
         tinyTiff(withXmp({}, R"(exif:DateTimeDigitized="2021-03-14T15:30:45")" + scanned)), photo(afternoon),
         exifCreateDate},
        {"xmp of the file.png",
         tinyPng(pngChunk("IHDR", std::string(13, '\1')) +
                 pngChunk("iTXt", "XML:com.adobe.xmp\0\0\0\0\0"s +
                                      tinyXmp(R"(xmp:CreateDate="2021-03-14T15:30:45Z")" + edited))),
         inUtc, exifCreateDate},
        {"xmp of an edit.jpg", tinyJpeg(withXmp({}, R"(xmp:ModifyDate="2021-03-14T15:30:45")")),
         photo(afternoon), tiffDateTime},
        {"press.jpg", tinyJpeg(press), inUtc, exifDateTimeOriginal},
        {"press day.tif", tinyTiff(pressDay), photo(noon), exifDateTimeOriginal},
        {"press day beside a time of it.jpg",
         tinyJpeg(withXmp(changed, R"(photoshop:DateCreated="2021-03-14")")), photo(afternoon), tiffDateTime},
        {"press day beside a later edit.jpg",
         tinyJpeg(withXmp({}, R"(photoshop:DateCreated="2021-03-14")" + edited)), photo(noon),
         exifDateTimeOriginal},
        {"press without a day.jpg", tinyJpeg(pressWithoutDay), std::nullopt, unknown},
        {"exif.psd", tinyPsd(pressFacts("19990101") + photoshopResource(0x0422, exif)), photo(afternoon),
         exifDateTimeOriginal},
        {"xmp.psb", tinyPsd(photoshopResource(0x0424, xmpOriginal)), photo(afternoon), exifDateTimeOriginal},
        {"press.psd", tinyPsd(pressFacts("20210314")), photo(noon), exifDateTimeOriginal},
        {"exif.jxl", jxlStart + movieBox("Exif", bigEndianBytes(0, 4) + exif) + movieBox("jxlc", "\xFF\x0A"),
         photo(afternoon), exifDateTimeOriginal},
        {"xmp.jxl", jxlStart + movieBox("jxlc", "\xFF\x0A") + movieBox("xml ", xmpOriginal), photo(afternoon),
         exifDateTimeOriginal},
        {"exif, packed.jxl", jxlStart + brotliBox("Exif", bigEndianBytes(0, 4) + exif), photo(afternoon),
         exifDateTimeOriginal},
        {"xmp, packed.jxl", jxlStart + brotliBox("xml ", xmpOriginal), photo(afternoon),
         exifDateTimeOriginal},
        {"before its pixels.gif", tinyGif(xmpOriginal), photo(afternoon), exifDateTimeOriginal},
        {"behind its pixels.gif", tinyGif(xmpOriginal, 20), photo(afternoon), exifDateTimeOriginal},
        {"behind many pixels.gif", tinyGif(xmpOriginal, 2'000), photo(afternoon), exifDateTimeOriginal},
        {"2021-03-14 15.30.45.jpg", tinyJpeg(), movie(afternoon), filename},
        {"nowhere.jpg", tinyJpeg(), std::nullopt, unknown},
    });
}

TEST(DatesInFiles, AreFoundWhereverTheyStandInMovies) {
    const ScopedTimeZone zone("Asia/Tokyo");
    const Instant later = *inUtc + std::chrono::days(400);
    TinyMovie key;
    key.quickTimeCreationDate = "2021-03-14T16:30:45+0100";
    key.userDataDay = "1999-01-01 00:00:00";
    key.headerTime = later;
    TinyMovie day;
    day.userDataDay = "2021-03-14 15:30:45";
    day.headerTime = later;
    TinyMovie header;
    header.headerTime = inUtc;
    header.trackTime = later;
    TinyMovie track;
    track.trackTime = inUtc;
    TinyMovie wallClock;
    wallClock.wallClock = "Sun Mar 14 15:30:45 2021\n";
    wallClock.infoDate = "1999-01-01";
    wallClock.pictures = tinyDv({1999, 1, 1, 0, 0, 0});
    TinyMovie info;
    info.wallClock = "0000/00/00 00:00:00";
    info.infoDate = "2021-03-14"s + '\0';
    TinyMovie pictures;
    pictures.infoDate = "2022-01-01";
    pictures.pictures = tinyDv(afternoon);
    WallTime withoutTime = afternoon;
    withoutTime.hour = 25;
    const std::string halfSet = tinyDv(withoutTime);
    expectDates({
        {"key.mov", tinyQuickTime(key), inUtc, quickTimeMetadataDate},
        {"day.mp4", tinyQuickTime(day), inUtc, quickTimeMetadataDate},
        {"header.3gp", tinyQuickTime(header), inUtc, quickTimeMetadataDate},
        {"track.mp4", tinyQuickTime(track), inUtc, quickTimeMetadataDate},
        {"a.mkv", tinyMatroska(header), inUtc, quickTimeMetadataDate},
        {"a.wmv", tinyAsf(header), inUtc, quickTimeMetadataDate},
        {"clock.avi", tinyAvi(wallClock), movie(afternoon), quickTimeMetadataDate},
        {"info.avi", tinyAvi(info), movie(noon), quickTimeMetadataDate},
        {"pictures.avi", tinyAvi(pictures), movie(afternoon), quickTimeMetadataDate},
        {"a.dv", tinyDv(afternoon), movie(afternoon), quickTimeMetadataDate},
        {"last century.dv", tinyDv({1998, 12, 31, 23, 59, 59}), movie({1998, 12, 31, 23, 59, 59}),
         quickTimeMetadataDate},
        {"without a time.dv", halfSet, movie(noon), quickTimeMetadataDate},
        {"never set.dv", tinyDv({-1, -1, -1, -1, -1, -1}), std::nullopt, unknown},
        {"a.mts", tinyAvchd(afternoon), movie(afternoon), quickTimeMetadataDate},
        {"a.m2ts", tinyAvchd({2008, 1, 31, 0, 0, 3}, 188), movie({2008, 1, 31, 0, 0, 3}),
         quickTimeMetadataDate},
        {"never set.mts", tinyAvchd({-1, -1, -1, -1, -1, -1}), std::nullopt, unknown},
        {"VID_20210314_153045.mpg", "\0\0\1\xBA"s + std::string(100, '\0'), movie(afternoon), filename},
    });
}

} // namespace
} // namespace lumeo
