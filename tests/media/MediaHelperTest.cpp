#include "media/helper/MediaHelper.h"

#include "media/movie/MovieReader.h"
#include "platform/PosixFileSystem.h"
#include "samples/TinyMovies.h"
#include "support/TempFolder.h"

#include <filesystem>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace lumeo {
namespace {

std::string silentWave(std::uint32_t seconds) {
    const std::uint32_t size = 8000 * seconds;
    return "RIFF" + littleEndianBytes(36 + size, 4) + "WAVEfmt " + littleEndianBytes(16, 4) +
           littleEndianBytes(1, 2) + littleEndianBytes(1, 2) + littleEndianBytes(8000, 4) +
           littleEndianBytes(8000, 4) + littleEndianBytes(1, 2) + littleEndianBytes(8, 2) + "data" +
           littleEndianBytes(size, 4) + std::string(size, '\x80');
}

class MediaHelperTest : public testing::Test {
protected:
    [[nodiscard]] std::optional<double> durationOf(MediaHelper& helper, const std::string& content,
                                                   const std::stop_token& stop = {}) const {
        const FilePath file = folder_.write("file " + std::to_string(++files_) + ".mov", content);
        return durationIn(helper, file, stop);
    }
    [[nodiscard]] std::optional<double> durationIn(MediaHelper& helper, const FilePath& file,
                                                   const std::stop_token& stop = {}) const {
        const auto movie = MovieReader::read(disk_, file, helper, stop);
        return movie ? movie->durationSeconds : std::nullopt;
    }
    /// A helper that does what a shell script says.
    [[nodiscard]] MediaHelper scripted(const std::string& script) const {
        const FilePath file = folder_.write("helper", "#!/bin/sh\n" + script + "\n");
        std::filesystem::permissions(file.bytes(), std::filesystem::perms::owner_all);
        return MediaHelper(file);
    }
    [[nodiscard]] const TempFolder& folder() const { return folder_; }
    [[nodiscard]] const PosixFileSystem& disk() const { return disk_; }

private:
    TempFolder folder_;
    PosixFileSystem disk_;
    mutable int files_ = 0;
};

TEST_F(MediaHelperTest, TellsOfContainersKnownByTheirSignatureAndOfNothingElse) {
    MediaHelper helper;
    EXPECT_EQ(durationOf(helper, silentWave(3)), 3.0);
    const std::string name = folder().write("other.wav", silentWave(3)).bytes();
    for (const std::string& playlist : {
             "#EXTM3U\n#EXT-X-TARGETDURATION:3\n#EXTINF:3,\n" + name + "\n#EXT-X-ENDLIST\n",
             "ffconcat version 1.0\nfile '" + name + "'\n",
         }) {
        EXPECT_EQ(durationOf(helper, playlist), std::nullopt) << playlist;
    }
    EXPECT_EQ(durationOf(helper, silentWave(2).substr(0, 12) + "noise"), std::nullopt);
    EXPECT_EQ(durationOf(helper, silentWave(2)), 2.0) << "a refusal is no harm";
}

TEST_F(MediaHelperTest, EndsAHelperThatDiesHangsOrSpeaksUnaskedAndStartsAnother) {
    const std::string wave = silentWave(1);
    for (const char* script : {"kill -SEGV $$", "exit 0", "head -c 4; exit 1",
                               "printf 'more than any answer has, unasked'; cat"}) {
        MediaHelper helper = scripted(script);
        EXPECT_EQ(durationOf(helper, wave), std::nullopt) << script;
        EXPECT_EQ(durationOf(helper, wave), std::nullopt) << script;
    }
    MediaHelper missing(FilePath("/no/such/helper"));
    EXPECT_EQ(durationOf(missing, wave), std::nullopt);

    // The first helper sends something before it is asked. The next one would answer correctly.
    const std::string real = HelperProcess::installed("lumeo-media-helper").value().bytes();
    MediaHelper hasty = scripted("if mkdir '" + (folder() / "once").bytes() +
                                 "'; then head -c 1 /dev/zero; head -c 16 >/dev/null; head -c 64 /dev/zero; "
                                 "sleep 100; else exec '" +
                                 real + "'; fi");
    EXPECT_EQ(durationOf(hasty, wave), std::nullopt);
    EXPECT_EQ(durationOf(hasty, wave), 1.0);
}

TEST_F(MediaHelperTest, AsksNoSecondTimeAboutAFileThatWasRefused) {
    const std::string count = (folder() / "count").bytes();
    MediaHelper helper = scripted("echo >> '" + count + "'; exit 1");
    const FilePath file = folder().write("bad.mov", silentWave(1));
    EXPECT_EQ(durationIn(helper, file), std::nullopt);
    EXPECT_EQ(durationIn(helper, file), std::nullopt);
    MediaHelper another = scripted("echo >> '" + count + "'; exit 1");
    EXPECT_EQ(durationIn(another, file), std::nullopt);
    EXPECT_EQ(std::filesystem::file_size(count), 1U);
    folder().write("bad.mov", silentWave(2));
    EXPECT_EQ(durationIn(another, file), std::nullopt);
    EXPECT_EQ(std::filesystem::file_size(count), 2U) << "written anew";
}

TEST_F(MediaHelperTest, LeavesAFileInHandWhenItIsToStop) {
    MediaHelper helper = scripted("exec sleep 1000");
    const FilePath file = folder().write("slow.mov", silentWave(1));
    std::stop_source stop;
    std::jthread stopping([&] { stop.request_stop(); });
    EXPECT_EQ(durationIn(helper, file, stop.get_token()), std::nullopt);
    MediaHelper real;
    EXPECT_EQ(durationIn(real, file), 1.0) << "a stop is no refusal";
}

} // namespace
} // namespace lumeo
