#include "thumbnailer/ThumbnailMaker.h"

#include "platform/PosixFileSystem.h"
#include "samples/AttackFiles.h"
#include "samples/TinyMovies.h"
#include "support/TempFolder.h"
#include "thumbnailer/MadePictures.h"

#include <gtest/gtest.h>

namespace lumeo {
namespace {

class ThumbnailMakerTest : public testing::Test {
protected:
    [[nodiscard]] QImage make(std::string_view name, const std::string& content,
                              QSize pixels = {80, 80}) const {
        ThumbnailMaker::prepare();
        const auto file = PosixFileSystem().openForReading(folder_.write(name, content));
        return ThumbnailMaker::make(**file, name.ends_with(".nef"), pixels);
    }
    /// "red" or "blue", whichever is stronger at a point. The point is given as shares of the picture's
    /// sides.
    static std::string_view colourAt(const QImage& picture, double x, double y) {
        const QColor colour =
            picture.pixelColor(static_cast<int>(picture.width() * x), static_cast<int>(picture.height() * y));
        return colour.red() > colour.blue() ? "red" : "blue";
    }

private:
    TempFolder folder_;
};

TEST_F(ThumbnailMakerTest, FitsPicturesIntoTheSpaceWithoutEnlargingThem) {
    const QImage picture = redAndBlue({400, 200});
    for (const char* format : {"png", "jpeg", "bmp", "tiff", "webp"}) {
        const QImage made = make("picture.jpg", encoded(picture, format));
        EXPECT_EQ(made.size(), QSize(80, 40)) << format;
        EXPECT_EQ(colourAt(made, 0.25, 0.5), "red") << format;
        EXPECT_EQ(colourAt(made, 0.75, 0.5), "blue") << format;
    }
    EXPECT_EQ(make("small.png", encoded(redAndBlue({20, 10}), "png")).size(), QSize(20, 10));
    EXPECT_EQ(make("line.png", encoded(redAndBlue({2000, 1}), "png")).size(), QSize(80, 1));
}

TEST_F(ThumbnailMakerTest, TurnsPicturesUpright) {
    const std::string jpeg = encoded(redAndBlue({400, 200}), "jpeg");
    const QImage right = make("right.jpg", withOrientation(jpeg, 6));
    EXPECT_EQ(right.size(), QSize(40, 80));
    EXPECT_EQ(colourAt(right, 0.5, 0.25), "red");
    const QImage left = make("left.jpg", withOrientation(jpeg, 8));
    EXPECT_EQ(colourAt(left, 0.5, 0.25), "blue");
    EXPECT_EQ(colourAt(make("mirrored.jpg", withOrientation(jpeg, 2)), 0.25, 0.5), "blue");
}

TEST_F(ThumbnailMakerTest, ShowsThePreviewOfARawFileAsTheCameraLay) {
    const std::string jpeg = encoded(redAndBlue({160, 120}), "jpeg");
    EXPECT_EQ(make("level.nef", rawAround(jpeg, 1)).size(), QSize(80, 60));
    const QImage turned = make("turned.nef", rawAround(jpeg, 8));
    EXPECT_EQ(turned.size(), QSize(60, 80));
    EXPECT_EQ(colourAt(turned, 0.5, 0.25), "blue");
    EXPECT_EQ(make("heaps.nef", crwFile(crwHeap({{0x2007, jpeg}}))).size(), QSize(80, 60));
    // A preview with its own orientation is not turned twice.
    EXPECT_EQ(make("own.nef", rawAround(withOrientation(jpeg, 8), 8)).size(), QSize(60, 80));
}

TEST_F(ThumbnailMakerTest, ShowsAMovieHalfASecondFromItsStart) {
    QList<QColor> frames(12, Qt::red);
    std::fill(frames.begin() + 5, frames.end(), QColor(Qt::blue));
    const QImage level = make("movie.mov", movieOf(frames, {320, 240}));
    EXPECT_EQ(level.size(), QSize(80, 60));
    EXPECT_EQ(colourAt(level, 0.5, 0.5), "blue");
    EXPECT_EQ(make("portrait.mov", movieOf(frames, {320, 240}, {0, 1, -1, 0})).size(), QSize(60, 80));
    std::fill(frames.begin() + 5, frames.begin() + 6, QColor(Qt::red));
    EXPECT_EQ(colourAt(make("later.mov", movieOf(frames, {320, 240})), 0.5, 0.5), "red");
    EXPECT_TRUE(make("short.mov", movieOf({Qt::red, Qt::red, Qt::red}, {320, 240})).isNull());
    // 400 frames of 8K in 5 KB: the first ones have to do.
    EXPECT_EQ(make("large.ts", transportStreamOfLargeFrames(480, 270, 400)).size(), QSize(80, 45));
}

TEST_F(ThumbnailMakerTest, MakesNothingOfWhatIsNoPictureOrAsksForTooMuch) {
    const std::string png = encoded(redAndBlue({400, 200}), "png");
    std::string endless = encoded(redAndBlue({400, 200}), "bmp");
    endless.replace(18, 8, littleEndianBytes(100'000, 4) + littleEndianBytes(100'000, 4));
    EXPECT_TRUE(make("endless.bmp", endless).isNull());
    EXPECT_TRUE(make("head.png", png.substr(0, 40)).isNull());
    EXPECT_TRUE(make("text.jpg", "a text").isNull());
    EXPECT_TRUE(make("empty.mov", "").isNull());
    EXPECT_TRUE(
        make("drawing.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>").isNull());
    EXPECT_TRUE(make("raw.nef", rawAround("no picture", 1)).isNull());
    for (const std::string& movie : moviesForRawNames()) {
        EXPECT_TRUE(make("movie.nef", movie).isNull());
    }
    EXPECT_TRUE(make("heaps.nef", crwOfDoublingHeaps()).isNull());
    EXPECT_TRUE(make("heaps.nef", crwOfNestedHeaps()).isNull());
}

} // namespace
} // namespace lumeo
