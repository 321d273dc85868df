#include "scan/MediaScanner.h"
#include "platform/LocalCalendar.h"
#include "platform/PosixFileSystem.h"
#include "samples/TinyMovies.h"
#include "samples/TinyPhotos.h"
#include "support/FakeClock.h"
#include "support/FaultyFileSystem.h"
#include "support/SystemSettings.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <map>

#include <sys/stat.h>
#include <unistd.h>

namespace lumeo {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

/// A folder to scan, and the result of scanning it.
class MediaScannerTest : public testing::Test {
protected:
    void scan(std::vector<FilePath> roots) {
        MediaScanner scanner(disk_, volumes_, clock_);
        published_.clear();
        items_ =
            scanner.scan(roots, [this](const ScanProgress& progress) { published_.push_back(progress); });
    }
    void scan() { scan({folder_.path()}); }

    [[nodiscard]] const ScanProgress& finalProgress() const { return published_.back(); }
    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> names;
        for (const MediaItem& item : items_) {
            names.emplace_back(item.fileName());
        }
        return names;
    }
    [[nodiscard]] const MediaItem& item(std::string_view name) const {
        const auto found = std::ranges::find(items_, name, &MediaItem::fileName);
        EXPECT_NE(found, items_.end()) << name;
        return *found;
    }
    void link(std::string_view name, const FilePath& target) const {
        ASSERT_EQ(symlink(target.c_str(), (folder_ / name).c_str()), 0);
    }

    ScopedTimeZone zone_{"Europe/Paris"};
    TempFolder folder_;
    FakeClock clock_{Instant(std::chrono::sys_days{std::chrono::year{2024} / 6 / 1})};
    PosixFileSystem real_;
    FaultyFileSystem disk_{real_};
    SystemVolumes volumes_;
    std::vector<MediaItem> items_;
    std::vector<ScanProgress> published_;
};

Instant wall(int year, int month, int day, int hour = 12, int minute = 0, int second = 0) {
    return LocalCalendar::compose({year, month, day, hour, minute, second}).value();
}

TEST_F(MediaScannerTest, ReadsPhotosRawPhotosMoviesAndUndatedFilesEachTheirWay) {
    TinyPhoto facts;
    facts.dateTimeDigitized = "2021:03:15 08:00:00";
    facts.model = "Model 5";
    facts.lensModel = "50mm";
    facts.latitude = -33.5;
    facts.longitude = 151.25;
    folder_.write("DCIM/IMG_20190102_030405.JPG", tinyJpeg(facts));
    TinyMovie movie;
    movie.headerTime = codedEpoch + 1h;
    folder_.write("clip.mov", tinyQuickTime(movie));
    TinyPhoto onlyTiffDate;
    onlyTiffDate.dateTime = "1975:01:01 00:00:00";
    folder_.write("raw.DNG", tinyTiff(onlyTiffDate));
    folder_.write("VID_20200229_101112.mp4", "no movie at all");
    folder_.write("broken.jpg", "no picture at all");
    scan();

    const MediaItem& photo = item("IMG_20190102_030405.JPG");
    const FileStatus status = *real_.status(photo.sourceURL);
    EXPECT_EQ(photo.filesystemCreationDate, status.creationDate);
    EXPECT_EQ(photo.filesystemModificationDate, status.modificationDate);
    EXPECT_EQ(photo.metadataCreateDate, wall(2021, 3, 15, 8));
    EXPECT_EQ(photo.filenameDerivedDate, wall(2019, 1, 2, 3, 4, 5));
    EXPECT_EQ(photo.resolvedDate, photo.metadataCreateDate);
    EXPECT_EQ(photo.dateConfidence, DateConfidence::high);
    EXPECT_EQ(photo.cameraModel, SharedText("Model 5"));
    EXPECT_EQ(photo.lensModel, SharedText("50mm"));
    EXPECT_EQ(photo.pixelWidth, 16);
    EXPECT_NEAR(*photo.gpsLatitude, -33.5, 1e-6);
    EXPECT_FALSE(photo.dateSuspiciousWarning);

    const MediaItem& clip = item("clip.mov");
    EXPECT_EQ(clip.videoCreationDate, codedEpoch + 1h);
    EXPECT_NEAR(*clip.durationSeconds, 2.5, 0.01);
    EXPECT_EQ(clip.pixelHeight, 48);
    EXPECT_FALSE(clip.metadataCaptureDate || clip.cameraMake || clip.hasGPS);

    const MediaItem& raw = item("raw.DNG");
    EXPECT_EQ(raw.resolvedDate, wall(1975, 1, 1, 0));
    EXPECT_THAT(raw.scanWarnings, ElementsAre("Possible incorrect camera clock (1975)"));

    EXPECT_EQ(item("VID_20200229_101112.mp4").dateConfidence, DateConfidence::medium);
    EXPECT_FALSE(item("broken.jpg").resolvedDate);
}

TEST_F(MediaScannerTest, LeavesHousekeepingBundlesAndLinksAlone) {
    for (const char* name :
         {".DS_Store", "Thumbs.db", "desktop.ini", "._IMG_1.jpg", ".git/a.jpg", "$RECYCLE.BIN/a.jpg",
          ".Trashes/501/a.jpg", "System Volume Information/a.jpg", "._folder/a.jpg",
          "Photos.photoslibrary/a.jpg", "Old.PhotoLibrary/a.jpg", "Tool.APP/Contents/a.jpg", "x.bundle/a.jpg",
          ".Trash/a.jpg", ".Trash-1000/files/a.jpg", "$Recycle.Bin/a.jpg", "@eaDir/a.jpg", "#recycle/a.jpg",
          ".stversions/a.jpg", ".thumbnails/a.jpg", "lost+found/a.jpg", ".local/share/Trash/files/a.jpg",
          ".trashed-1700000000-a.jpg",
          // These count, three of them as files that are not media.
          "real.jpg", ".hidden.jpg", ".folder/inside.jpg", "album.jpg/inside album.jpg",
          "photoslibrary/named like a bundle.jpg", "Trash/named like a trash.jpg", "file.app", "thumbs.db",
          "paper.pdf"}) {
        folder_.write(name, "x");
    }
    link("link.jpg", folder_ / "real.jpg");
    link("linked folder", folder_ / ".folder");
    link("dangling.jpg", folder_ / "nowhere");
    ASSERT_EQ(mkfifo((folder_ / "pipe.jpg").c_str(), 0600), 0);
    scan();

    EXPECT_THAT(names(), UnorderedElementsAre("real.jpg", ".hidden.jpg", "inside.jpg", "inside album.jpg",
                                              "named like a bundle.jpg", "named like a trash.jpg"));
    EXPECT_EQ(finalProgress().totalScannedCount, 9);
    EXPECT_EQ(finalProgress().unsupportedCount, 3);
    EXPECT_EQ(finalProgress().errorsCount, 0);
}

TEST_F(MediaScannerTest, TakesFilesFoldersAndLinksToEitherAsSources) {
    const FilePath single = folder_.write("single.jpg", "12345");
    const FilePath paper = folder_.write("paper.pdf", "x");
    folder_.write("album/inside.jpg", "123");
    link("link to single.png", single);
    link("link to album", folder_ / "album");
    link("dangling", folder_ / "nowhere");
    ASSERT_EQ(mkfifo((folder_ / "pipe.jpg").c_str(), 0600), 0);
    scan({folder_ / "missing", paper, folder_ / "link to album", folder_ / "dangling", folder_ / "pipe.jpg",
          folder_ / "link to single.png"});

    EXPECT_THAT(names(), ElementsAre("inside.jpg", "link to single.png"));
    EXPECT_EQ(items_[0].sourceURL, folder_ / "link to album/inside.jpg");
    EXPECT_EQ(items_[1].fileSize, 5);
    const ScanProgress& counters = finalProgress();
    EXPECT_EQ(counters.photosCount, 2);
    EXPECT_EQ(counters.totalBytesScanned, 8);
    EXPECT_EQ(counters.totalScannedCount, 1) << "single files are no part of a walked folder";
    EXPECT_EQ(counters.unsupportedCount, 1);
    EXPECT_EQ(counters.errorsCount, 0) << "sources that are not there are passed over";
    EXPECT_EQ(counters.currentItemName, "inside.jpg");
}

TEST_F(MediaScannerTest, ListsAFileOnceHoweverManySourcesLeadToIt) {
    for (const char* name : {"a.jpg", "album/b.jpg", "album/trip/c.jpg", "album2/d.jpg", "closed/gate/e.jpg",
                             "Old.photoslibrary/f.jpg"}) {
        folder_.write(name, "x");
    }
    link("link", folder_ / "album");
    const FilePath closed = folder_ / "closed"; // a walk cannot enter it, but a path into it works
    disk_.failWhen(
        [&](const DiskCall& call) { return call.action == FileAction::list && call.path == closed; }, EACCES);
    const std::vector<FilePath> sources{folder_ / "album/trip",  folder_.path(),
                                        folder_ / "link",        folder_ / "album",
                                        folder_ / "a.jpg",       folder_ / "album/b.jpg",
                                        folder_ / "closed/gate", folder_ / "Old.photoslibrary"};
    scan(sources);
    EXPECT_THAT(names(), UnorderedElementsAre("a.jpg", "b.jpg", "c.jpg", "d.jpg", "e.jpg", "f.jpg"));
    EXPECT_EQ(item("c.jpg").sourceURL, folder_ / "album/trip/c.jpg");
    EXPECT_EQ(item("b.jpg").sourceURL, folder_ / "album/b.jpg");
    scan({folder_ / "link", folder_ / "album/trip"});
    EXPECT_THAT(names(), UnorderedElementsAre("b.jpg", "c.jpg"));
}

TEST_F(MediaScannerTest, CountsWhatItCannotReadAndGoesOn) {
    folder_.write("a/good.jpg", "x");
    folder_.write("b/unknown.jpg", "x");
    folder_.write("closed/inside.jpg", "x");
    folder_.write("unreadable.jpg", "12");
    disk_.failWhen(
        [](const DiskCall& call) {
            const std::string_view name = call.path.lastComponent();
            return (call.operation == "next" && name == "unknown.jpg") ||
                   (call.operation == "enumerate" && name == "closed") ||
                   (call.operation == "openForReading" && name == "unreadable.jpg");
        },
        EACCES);
    scan();

    EXPECT_THAT(names(), UnorderedElementsAre("good.jpg", "unreadable.jpg"));
    EXPECT_EQ(item("unreadable.jpg").fileSize, 2);
    EXPECT_EQ(finalProgress().errorsCount, 2) << "one entry, one folder; a file without metadata is no error";
    EXPECT_EQ(finalProgress().totalScannedCount, 2);
    EXPECT_TRUE(finalProgress().isCompleted);
}

TEST_F(MediaScannerTest, PublishesEveryFileBeforeTheFirstItemThenEveryFortyAndAfterAWhile) {
    for (int i = 0; i < 5; ++i) {
        folder_.write("papers/" + std::to_string(i) + ".pdf", "x");
    }
    scan({folder_ / "papers"});
    EXPECT_EQ(published_.size(), 6U) << "and the end";
    EXPECT_EQ(disk_.callCount(), 7U) << "the source's status, the walk, and its five entries once";

    for (int i = 0; i < 100; ++i) {
        folder_.write("photos/IMG_" + std::to_string(i) + ".jpg", "x");
    }
    const auto publishedItems = [this] {
        std::vector<std::int64_t> counts;
        for (const ScanProgress& progress : published_) {
            counts.push_back(progress.supportedMediaCount());
        }
        return counts;
    };
    scan({folder_ / "photos"});
    EXPECT_THAT(publishedItems(), ElementsAre(40, 80, 100)) << "the clock stands still";

    disk_.beforeEachCall([this](const DiskCall& call) {
        if (call.operation == "next") {
            clock_.advance(5ms);
        }
    });
    scan({folder_ / "photos"});
    EXPECT_THAT(publishedItems(), ElementsAre(11, 22, 33, 40, 51, 62, 73, 80, 91, 100))
        << "more than 50 ms after the last time";
    EXPECT_DOUBLE_EQ(published_.front().scanDurationSeconds, 0.055);
    EXPECT_DOUBLE_EQ(finalProgress().scanDurationSeconds, 0.5);
}

} // namespace
} // namespace lumeo
