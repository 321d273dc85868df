#include "ui/thumbnails/ThumbnailService.h"

#include "support/EventLoop.h"
#include "support/TempFolder.h"
#include "thumbnailer/MadePictures.h"

#include <filesystem>

#include <gtest/gtest.h>

namespace lumeo {
namespace {

class ThumbnailServiceTest : public ::testing::Test {
protected:
    FilePath picture(const std::string& name, QSize size = {400, 200}) const {
        return folder_.write(name, encoded(redAndBlue(size), "png"));
    }
    [[nodiscard]] const TempFolder& folder() const { return folder_; }
    static void remove(const FilePath& file) { std::filesystem::remove(file.bytes()); }

    /// A helper that does what a shell script says.
    FilePath helper(const std::string& script) const {
        const FilePath file = folder_.write("helper", "#!/bin/sh\n" + script);
        std::filesystem::permissions(file.bytes(), std::filesystem::perms::owner_all);
        return file;
    }
    /// Waits for the answer. Absent when none comes.
    static std::optional<QImage> answerOf(ThumbnailService& service, const FilePath& file,
                                          QSize points = {40, 40}) {
        std::optional<QImage> answer;
        service.load(file, points, [&answer](const QImage& image) { answer = image; });
        EXPECT_FALSE(answer);
        EXPECT_TRUE(testing::waitUntil([&] { return answer.has_value(); }));
        return answer;
    }

private:
    TempFolder folder_;
};

TEST_F(ThumbnailServiceTest, TriesNoSecondTimeWhatGaveNoPictureUntilItChanges) {
    const std::string count = (folder() / "count").bytes();
    const FilePath file = picture("photo.png");
    ThumbnailService service(helper("echo >> '" + count + "'; exit 1"));
    EXPECT_TRUE(answerOf(service, file)->isNull());
    EXPECT_TRUE(answerOf(service, file)->isNull());
    EXPECT_EQ(std::filesystem::file_size(count), 1U);
    picture("photo.png", {200, 100});
    EXPECT_TRUE(answerOf(service, file)->isNull());
    EXPECT_EQ(std::filesystem::file_size(count), 2U);
}

TEST_F(ThumbnailServiceTest, EndsAHelperThatSpeaksUnasked) {
    const std::string real = HelperProcess::installed("lumeo-thumbnailer").value().bytes();
    const std::string answered = (folder() / "answered").bytes();
    const std::string spoken = (folder() / "spoken").bytes();
    // A child process of the helper outlives it and writes something.
    ThumbnailService service(helper("if [ -e '" + answered + "' ]; then exec '" + real +
                                    "'; fi; head -c 24 >/dev/null; head -c 8 /dev/zero; touch '" + answered +
                                    "'; (head -c 1 /dev/zero; touch '" + spoken + "') & sleep 100"));
    EXPECT_TRUE(answerOf(service, picture("first.png"))->isNull());
    EXPECT_TRUE(testing::waitUntil([&] { return std::filesystem::exists(spoken); }));
    EXPECT_FALSE(answerOf(service, picture("second.png"))->isNull()) << "by another";
}

TEST_F(ThumbnailServiceTest, KeepsPicturesButNoFailures) {
    ThumbnailService service;
    const FilePath file = picture("photo.png");
    EXPECT_EQ(answerOf(service, file)->size(), QSize(80, 40));
    remove(file);
    EXPECT_EQ(answerOf(service, file, {10, 10})->size(), QSize(80, 40));

    picture("photo.png", {200, 400});
    EXPECT_EQ(answerOf(service, file)->size(), QSize(40, 80)) << "replaced meanwhile";
    EXPECT_EQ(answerOf(service, file, {400, 400})->size(), QSize(200, 400)) << "large ones are made anew";

    const FilePath later = picture("later.png");
    remove(later);
    EXPECT_TRUE(answerOf(service, later)->isNull());
    picture("later.png");
    EXPECT_FALSE(answerOf(service, later)->isNull());
}

TEST_F(ThumbnailServiceTest, ForgetsThePictureThatWasUsedLongestAgo) {
    ThumbnailService service;
    const FilePath oldest = picture("oldest.png", {4, 2});
    const FilePath used = picture("used.png", {4, 2});
    int asked = 0;
    int answered = 0;
    const auto ask = [&](const FilePath& file) {
        ++asked;
        service.load(file, {40, 40}, [&](const QImage& image) { answered += image.isNull() ? 0 : 1; });
    };
    ask(used);
    ask(oldest);
    for (int i = 0; i < 198; ++i) {
        ask(picture("photo" + std::to_string(i) + ".png", {4, 2}));
    }
    ask(used); // for the second time, when all places are taken
    ask(picture("one too many.png", {4, 2}));
    EXPECT_TRUE(testing::waitUntil([&] { return answered == asked; }));
    remove(oldest);
    remove(used);
    EXPECT_FALSE(answerOf(service, used)->isNull());
    EXPECT_TRUE(answerOf(service, oldest)->isNull());
    remove(folder() / "photo0.png");
    EXPECT_FALSE(answerOf(service, folder() / "photo0.png")->isNull());
}

TEST_F(ThumbnailServiceTest, GivesNoAnswerToADroppedRequest) {
    ThumbnailService service;
    QStringList answered;
    const auto note = [&answered](const char* name) {
        return [&answered, name](const QImage&) { answered.append(QString::fromLatin1(name)); };
    };
    const FilePath file = picture("photo.png");
    const quint64 first = service.load(file, {40, 40}, note("first"));
    const quint64 second = service.load(file, {40, 40}, note("second"));
    service.load(file, {40, 40}, note("third"));
    service.drop(second);
    service.drop(99);
    QCoreApplication::processEvents();
    service.drop(first); // the helper has it by now
    EXPECT_TRUE(testing::waitUntil([&] { return !answered.isEmpty(); }));
    EXPECT_EQ(answered, QStringList{QStringLiteral("third")});
}

TEST_F(ThumbnailServiceTest, OutlivesAHelperThatDoesNot) {
    const FilePath file = picture("photo.png");
    for (const char* script :
         {"kill -SEGV $$", "exit 0", "echo nonsense, and more of it than any picture has",
          "dd bs=1 count=4 2>/dev/null; exit 1"}) {
        ThumbnailService service(helper(script));
        EXPECT_TRUE(answerOf(service, file)->isNull()) << script;
        EXPECT_TRUE(answerOf(service, file)->isNull()) << script;
    }
    ThumbnailService without(FilePath("/no/such/helper"));
    EXPECT_TRUE(answerOf(without, file)->isNull());
    ThumbnailService withoutAny(std::optional<FilePath>{});
    EXPECT_TRUE(answerOf(withoutAny, file)->isNull());
}

TEST_F(ThumbnailServiceTest, EndsAHelperThatHangsOnAnUnwantedFile) {
    const FilePath file = picture("photo.png");
    ThumbnailService service(helper("exec sleep 1000"));
    bool isAnswered = false;
    const quint64 hanging = service.load(file, {40, 40}, [&](const QImage&) { isAnswered = true; });
    QCoreApplication::processEvents();
    service.drop(hanging);
    helper("exit 0");
    EXPECT_TRUE(answerOf(service, file)->isNull());
    EXPECT_FALSE(isAnswered);
}

TEST_F(ThumbnailServiceTest, MayEndWhileItWorks) {
    const FilePath file = picture("photo.png");
    bool isAnswered = false;
    {
        ThumbnailService service(helper("exec sleep 1000"));
        service.load(file, {40, 40}, [&](const QImage&) { isAnswered = true; });
        QCoreApplication::processEvents();
    }
    auto service = std::make_unique<ThumbnailService>();
    service->load(file, {40, 40}, [&](const QImage&) {
        service.reset();
        isAnswered = true;
    });
    EXPECT_TRUE(testing::waitUntil([&] { return isAnswered; }));
}

} // namespace
} // namespace lumeo
