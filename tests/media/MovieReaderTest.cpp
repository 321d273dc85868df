#include "media/movie/MovieReader.h"

#include "media/helper/MediaHelper.h"
#include "platform/DateText.h"
#include "platform/PosixFileSystem.h"
#include "samples/TinyMovies.h"
#include "support/Damage.h"
#include "support/FaultyFileSystem.h"
#include "support/MemoryFileSystem.h"
#include "support/SystemSettings.h"
#include "support/TempFolder.h"

#include <filesystem>
#include <fstream>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace lumeo {
namespace {

using testing::ElementsAre;

Instant at(std::string_view text) {
    return DateText::parseIso8601(text).value();
}

/// Reads only with our own readers.
std::optional<MovieProperties> readFile(const FileSystem& disk, const FilePath& path) {
    MediaHelper none(std::nullopt);
    return MovieReader::read(disk, path, none);
}

std::optional<MovieProperties> readBytes(std::string_view bytes) {
    MemoryFileSystem disk;
    const FilePath path("/movies/clip.mov");
    disk.addFile(path, bytes);
    return readFile(disk, path);
}

MovieProperties propertiesOf(std::string_view bytes) {
    const std::optional<MovieProperties> movie = readBytes(bytes);
    EXPECT_TRUE(movie.has_value());
    return movie.value_or(MovieProperties{});
}

struct Container {
    const char* name;
    std::string (*make)(const TinyMovie&);
};

class EveryContainer : public testing::TestWithParam<Container> {};

INSTANTIATE_TEST_SUITE_P(MovieReader, EveryContainer,
                         testing::Values(Container{"QuickTime", tinyQuickTime},
                                         Container{"Matroska", tinyMatroska}, Container{"Asf", tinyAsf},
                                         Container{"Avi", tinyAvi}),
                         [](const auto& test) { return test.param.name; });

TEST_P(EveryContainer, TellsItsDateDurationAndSize) {
    const ScopedTimeZone zone("Asia/Tokyo");
    TinyMovie made;
    made.headerTime = at("2021-03-14T15:30:45Z");
    made.wallClock = "Mon Mar 15 00:30:45 2021\n";
    made.durationSeconds = 61.25;
    made.width = 1920;
    made.height = 1080;
    const MovieProperties movie = propertiesOf(GetParam().make(made));
    const MovieMetadataItem created{"creationDate", made.headerTime, std::nullopt};
    EXPECT_THAT(movie.metadata, ElementsAre(created));
    EXPECT_THAT(movie.commonCreationDates, ElementsAre(created));
    EXPECT_EQ(movie.durationSeconds, 61.25);
    EXPECT_EQ(movie.videoTrack, (MovieVideoTrack{1920, 1080}));

    made.durationSeconds = 0;
    made.width = 0;
    EXPECT_EQ(propertiesOf(GetParam().make(made)).videoTrack, std::nullopt) << "a size left open";
    EXPECT_EQ(propertiesOf(GetParam().make(made)).durationSeconds, std::nullopt);
}

TEST_P(EveryContainer, TakesAnUnsetClockForNoDate) {
    const ScopedTimeZone zone("UTC");
    EXPECT_THAT(propertiesOf(GetParam().make({})).metadata, ElementsAre());
    for (const std::string clock : {"1904-01-01T00:00:00Z", "1970-01-01T00:00:00Z", "1970-01-01T07:00:00Z"}) {
        TinyMovie made;
        made.headerTime = at(clock);
        made.wallClock = clock.substr(0, 4) + "/01/01 " + clock.substr(11, 8);
        EXPECT_THAT(propertiesOf(GetParam().make(made)).metadata, ElementsAre()) << clock;
    }
}

TEST_P(EveryContainer, SurvivesBreakingOffAndDamageAnywhere) {
    TinyMovie made;
    made.headerTime = at("2021-03-14T15:30:45Z");
    made.quickTimeCreationDate = "2021-03-14T16:30:45+0100";
    made.userDataDay = "2021-03-14";
    made.wallClock = "2021/03/14 15:30:45";
    const std::string whole = GetParam().make(made);
    damageEverywhere(whole, std::string_view("\0\1\x7F\xFF", 4),
                     [](const std::string& damaged) { static_cast<void>(readBytes(damaged)); });
    EXPECT_EQ(propertiesOf(std::string_view(whole).substr(0, whole.size() - 8)).metadata.empty(), false)
        << "what stands before the break is kept";
}

TEST(MovieReader, ListsQuickTimeDatesAsTheyStandAndBestFirst) {
    TinyMovie made;
    made.headerTime = at("2021-03-14T15:30:45Z");
    made.userDataDay = "2010";
    made.quickTimeCreationDate = "2021-03-14T16:30:45+0100";
    made.transform = {0, 1, -1, 0};
    const MovieProperties movie = propertiesOf(tinyQuickTime(made));
    const MovieMetadataItem header{"creationDate", made.headerTime, std::nullopt};
    const MovieMetadataItem day{"©day", std::nullopt, "2010"};
    const MovieMetadataItem key{"com.apple.quicktime.creationdate", std::nullopt, "2021-03-14T16:30:45+0100"};
    EXPECT_THAT(movie.metadata, ElementsAre(header, day, key));
    EXPECT_THAT(movie.commonCreationDates, ElementsAre(key, day, header));
    EXPECT_EQ(movie.videoTrack, (MovieVideoTrack{64, 48, {0, 1, -1, 0, 0, 0}}));
}

/// A movie header of the long form, with 64-bit times.
std::string longHeader(std::uint64_t created, std::uint64_t duration) {
    return movieBox("mvhd", bigEndianBytes(0x01000000, 4) + bigEndianBytes(created, 8) +
                                bigEndianBytes(created, 8) + bigEndianBytes(600, 4) +
                                bigEndianBytes(duration, 8));
}

TEST(MovieReader, ReadsTheManyWaysInWhichQuickTimeFilesAreLaidOut) {
    constexpr std::uint64_t secondsFrom1904To2021 = 3'698'580'645;
    const std::string header = longHeader(secondsFrom1904To2021, 1500);
    const Instant created = at("2021-03-14T15:30:45Z");

    const std::string open = bigEndianBytes(0, 4) + "moov" + header;
    EXPECT_EQ(propertiesOf(movieBox("wide", "") + open).metadata.at(0).dateValue, created)
        << "a last box without end";
    EXPECT_EQ(propertiesOf(open).durationSeconds, 2.5);

    const std::string longMedia = bigEndianBytes(1, 4) + "mdat" + bigEndianBytes(16 + 5, 8) + "media";
    EXPECT_EQ(propertiesOf(longMedia + movieBox("moov", header)).metadata.at(0).dateValue, created);

    const std::string sinceUnixEpoch = longHeader(1'615'735'845, 1500);
    EXPECT_EQ(propertiesOf(movieBox("moov", sinceUnixEpoch)).metadata.at(0).dateValue, created);
    EXPECT_THAT(propertiesOf(movieBox("moov", longHeader(~std::uint64_t{0} >> 1U, 1500))).metadata,
                ElementsAre());

    // The boxes of other tools: MP4's metadata, with names of four letters, inside the user data.
    const std::string value =
        movieBox("data", bigEndianBytes(1, 4) + bigEndianBytes(0, 4) + "2019-07-01 08:00:00");
    const std::string handler = movieBox("hdlr", std::string(8, '\0') + "mdir" + std::string(13, '\0'));
    const std::string metadata = movieBox("meta", bigEndianBytes(0, 4) + handler +
                                                      movieBox("ilst", movieBox("\xA9"
                                                                                "day",
                                                                                value)));
    const MovieMetadataItem day{"©day", std::nullopt, "2019-07-01 08:00:00"};
    EXPECT_THAT(propertiesOf(movieBox("moov", longHeader(0, 1) + movieBox("udta", metadata))).metadata,
                ElementsAre(day));
}

TEST(MovieReader, ReadsWhatARecorderWroteBeforeItKnewTheLength) {
    const std::string segment("\x18\x53\x80\x67");
    for (const std::string size : {"\xFF", "\x7F\xFF", "\x01\xFF\xFF\xFF\xFF\xFF\xFF\xFF"}) {
        TinyMovie made;
        made.headerTime = at("2021-03-14T12:00:00Z");
        std::string live = tinyMatroska(made);
        live.replace(live.find(segment) + segment.size(), 8, size);
        EXPECT_EQ(propertiesOf(live).metadata.size(), 1U) << size.size();
    }
}

TEST(MovieReader, ReadsTheWallClocksThatCamerasWriteIntoAvi) {
    const ScopedTimeZone zone("Europe/Berlin");
    for (const auto& [text, expected] : std::vector<std::pair<std::string, std::string_view>>{
             {"Mon Mar 10 15:04:43 2003\n", "2003-03-10T14:04:43Z"},
             {"SAT JUL 05 15:04:43 2003", "2003-07-05T13:04:43Z"},
             {"2009/10/27 12:14:34", "2009-10-27T11:14:34Z"},
             {"2005/08/17/ 11:42", "2005-08-17T09:42:00Z"},
             {"2001/ 1/27  1:42PM", "2001-01-27T12:42:00Z"},
             {"2001/ 1/27 12:42AM", "2001-01-26T23:42:00Z"},
             {"2001/ 1/27 12:42PM", "2001-01-27T11:42:00Z"},
             {"2005-08-17", "2005-08-17T10:00:00Z"},
         }) {
        TinyMovie made;
        made.wallClock = text + std::string(2, '\0');
        const MovieProperties movie = propertiesOf(tinyAvi(made));
        ASSERT_EQ(movie.metadata.size(), 1U) << text;
        EXPECT_EQ(movie.metadata.front().dateValue, at(expected)) << text;
    }
    TinyMovie cutShort;
    cutShort.wallClock = "2009/10/27 12:14:34";
    EXPECT_EQ(propertiesOf(tinyAvi(cutShort).replace(4, 4, 4, '\0')).metadata.size(), 1U)
        << "its length not yet written";
    for (const char* const text :
         {"", "0000/00/00 00:00:00", "2009/13/27 12:14:34", "2009/02/31 12:14:34", "2009/257/27 12:14:34",
          "2009", "yesterday at 10:10:10", "99999999999999999999/10/27 12:14:34"}) {
        TinyMovie made;
        made.wallClock = text;
        EXPECT_THAT(propertiesOf(tinyAvi(made)).metadata, ElementsAre()) << text;
    }
}

TEST(MovieReader, SurvivesDamagedStreamsOfCamcorders) {
    const WallTime clock{2021, 3, 14, 15, 30, 45};
    TinyMovie captured;
    captured.pictures = tinyDv(clock);
    for (const std::string& whole : {tinyDv(clock), tinyAvchd(clock), tinyAvi(captured)}) {
        EXPECT_EQ(propertiesOf(whole).metadata.size(), 1U);
        damageEverywhere(whole, std::string_view("\0\xFF", 2),
                         [](const std::string& damaged) { static_cast<void>(readBytes(damaged)); });
    }
}

TEST(MovieReader, ReadsLittleOfAFileHoweverLongItIs) {
    const TempFolder folder;
    TinyMovie made;
    made.headerTime = at("2021-03-14T15:30:45Z");
    const std::string movie = tinyQuickTime(made);
    constexpr std::uint64_t mediaSize = 5'000'000'000; // a hole, which takes no space
    const std::string path =
        folder.write("long \xFF.mov", bigEndianBytes(1, 4) + "mdat" + bigEndianBytes(mediaSize, 8)).bytes();
    std::filesystem::resize_file(path, mediaSize);
    std::ofstream(path, std::ios::binary | std::ios::app) << movie;

    PosixFileSystem real;
    FaultyFileSystem disk(real);
    const std::optional<MovieProperties> read = readFile(disk, FilePath(path));
    ASSERT_TRUE(read.has_value());
    EXPECT_EQ(read->metadata.at(0).dateValue, made.headerTime);
    EXPECT_LT(disk.callCount(), 10U);
}

TEST(MovieReader, GivesNothingForWhatIsNoMovieOrCannotBeRead) {
    const TempFolder folder;
    PosixFileSystem real;
    EXPECT_EQ(readFile(real, folder / "missing.mov"), std::nullopt);
    EXPECT_EQ(readFile(real, folder.path()), std::nullopt);
    EXPECT_EQ(readBytes(""), std::nullopt);
    EXPECT_EQ(readBytes("this is a letter, not a movie"), std::nullopt);

    FaultyFileSystem disk(real);
    disk.failAction(FileAction::read, EIO);
    EXPECT_EQ(readFile(disk, folder.write("clip.mov", tinyQuickTime())), std::nullopt);
}

} // namespace
} // namespace lumeo
