#include "dates/VideoMetadataExtractor.h"

#include "media/movie/MovieReader.h"
#include "platform/DateText.h"

#include <cmath>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

namespace lumeo {
namespace {

Instant at(std::string_view text) {
    return DateText::parseIso8601(text).value();
}

MovieMetadataItem text(std::string key, std::string value) {
    return {std::move(key), std::nullopt, std::move(value)};
}

MovieMetadataItem date(std::string key, std::string_view value) {
    return {std::move(key), at(value), std::nullopt};
}

std::optional<Instant> creationDateOf(std::vector<MovieMetadataItem> common,
                                      std::vector<MovieMetadataItem> all = {}) {
    MovieProperties movie;
    movie.commonCreationDates = std::move(common);
    movie.metadata = std::move(all);
    return VideoMetadataExtractor::fromProperties(movie).creationDate;
}

TEST(VideoMetadataExtractor, TakesTheFirstCommonDateBeforeAnyOther) {
    const MovieMetadataItem other = date("creationDate", "2001-02-03T04:05:06Z");
    EXPECT_EQ(creationDateOf({date("creationDate", "2021-03-14T15:30:45Z"), other}, {other}),
              at("2021-03-14T15:30:45Z"));
    EXPECT_EQ(creationDateOf({text("©day", "2021-03-14T15:30:45Z"), other}, {other}),
              at("2021-03-14T15:30:45Z"));
    EXPECT_EQ(creationDateOf({text("©day", "2010"), date("creationDate", "2021-03-14T15:30:45Z")}, {other}),
              at("2001-02-03T04:05:06Z"))
        << "only the first one counts; then comes the whole list";
}

TEST(VideoMetadataExtractor, WalksTheWholeListForTheFirstReadableDateUnderAKnownKey) {
    const MovieMetadataItem key = date("com.apple.quicktime.creationdate", "2021-03-14T15:30:45Z");
    EXPECT_EQ(creationDateOf({}, {text("©day", "a sunny day"), key}), at("2021-03-14T15:30:45Z"));
    EXPECT_EQ(creationDateOf({}, {text("com.apple.quicktime.creationDate", "2001-02-03T04:05:06Z"),
                                  text("date", "2001-02-03T04:05:06Z"), key}),
              at("2021-03-14T15:30:45Z"))
        << "keys are compared exactly";
    EXPECT_EQ(creationDateOf({}, {{"creationDate", std::nullopt, std::nullopt}, text("©day", "2010")}),
              std::nullopt);
}

TEST(VideoMetadataExtractor, ReadsDateTextsInItsThreeForms) {
    EXPECT_EQ(creationDateOf({text("©day", "2021-03-14T15:30:45.123+01:00")}),
              at("2021-03-14T14:30:45.123Z"));
    EXPECT_EQ(creationDateOf({text("©day", " 2019-07-01T08:00:00+0200\r\n")}), at("2019-07-01T06:00:00Z"));
    EXPECT_EQ(creationDateOf({text("©day", "2019-07-01 08:00:00")}), at("2019-07-01T08:00:00Z"));
    EXPECT_EQ(creationDateOf({text("©day", "2019-07-01")}), std::nullopt);
}

TEST(VideoMetadataExtractor, KeepsOnlyADurationThatIsOne) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (const auto& [stored, expected] :
         std::vector<std::pair<std::optional<double>, std::optional<double>>>{
             {61.5, 61.5}, {0.0, {}}, {-1.0, {}}, {infinity, {}}, {std::nan(""), {}}, {{}, {}}}) {
        MovieProperties movie;
        movie.durationSeconds = stored;
        EXPECT_EQ(VideoMetadataExtractor::fromProperties(movie).durationSeconds, expected);
    }
}

TEST(VideoMetadataExtractor, SwapsTheSidesOnlyOnAQuarterTurnAndTakesOnlySizesThatAreOnes) {
    using Size = std::pair<std::optional<std::int64_t>, std::optional<std::int64_t>>;
    for (const auto& [track, expected] : std::vector<std::pair<MovieVideoTrack, Size>>{
             {{1920, 1080, {0, 1, -1, 0, 1080, 0}}, {1080, 1920}},
             {{1920, 1080, {0, 1, 1, 0, 0, 0}}, {1080, 1920}}, // mirrored, too
             {{1920, 1080, {-1, 0, 0, -1, 1920, 1080}}, {1920, 1080}},
             {{1920, 1080, {1, 0.5, -0.5, 1, 0, 0}}, {1920, 1080}},
             {{853.9, 480.5}, {853, 480}},
             {{std::nan(""), 480}, {}},
             {{1e300, 480}, {}},
         }) {
        MovieProperties movie;
        movie.videoTrack = track;
        const VideoMetadataResult result = VideoMetadataExtractor::fromProperties(movie);
        EXPECT_EQ(Size(result.pixelWidth, result.pixelHeight), expected);
    }
}

} // namespace
} // namespace lumeo
