#include "hashing/StreamingHashService.h"
#include "platform/PosixFileSystem.h"
#include "proof/ArchiveCheck.h"
#include "proof/ArchiveVerification.h"
#include "proof/ChecksumList.h"
#include "support/FakeClock.h"
#include "support/FaultyFileSystem.h"
#include "support/TempFolder.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace lumeo {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using Kind = ArchiveFinding::Kind;

/// A card and the archive that it was copied to, with everything that is usually on such disks. Every date is
/// in the past.
class ProofTest : public testing::Test {
protected:
    void SetUp() override {
        write("card/DCIM/100CANON/IMG_0001.JPG", "first");
        write("card/DCIM/100CANON/IMG_0002.JPG", "other"); // of one size
        write("card/DCIM/100CANON/MVI_0003.MP4", "a movie");
        write("card/DCIM/100CANON/IMG_0001.XMP", "a companion");
        write("card/DCIM/100CANON/._IMG_0001.JPG", "of another system");
        write("card/MISC/readme.txt", "no media");
        write("card/.Trashes/old.jpg", "thrown away");
        write("archive/2021/IMG_0001.JPG", "first");
        write("archive/2021/IMG_0001_2.JPG", "other");
        write("archive/2021/MVI_0003.MP4", "a movie");
        write("archive/2019/earlier.jpg", "an earlier one");
    }
    void write(std::string_view relative, std::string_view content) const {
        const FilePath path = folder_.write(relative, content);
        std::filesystem::last_write_time(path.bytes(), std::filesystem::file_time_type::clock::now() - 24h);
    }
    void remove(std::string_view relative) const { std::filesystem::remove((folder_ / relative).bytes()); }

    CheckOutcome check(bool readsAll = false, std::string_view source = "card",
                       std::string_view archive = "archive", std::string_view secondSource = "") {
        const FilePath root = folder_ / archive;
        KeptDigests kept(disk_, folder_ / "state", root);
        std::vector<FilePath> sources{folder_ / source};
        if (!secondSource.empty()) {
            sources.push_back(folder_ / secondSource);
        }
        return ArchiveCheck(disk_, clock_, kept, readsAll).run(sources, root, [](const auto&) {}, {});
    }
    std::vector<std::string> missing(bool readsAll = false) {
        std::vector<std::string> names;
        const CheckOutcome outcome = check(readsAll);
        for (const CheckOutcome::Missing& file : outcome.missing) {
            names.emplace_back(file.path.lastComponent());
        }
        EXPECT_EQ(outcome.isComplete(), names.empty());
        return names;
    }
    VerificationOutcome verify(std::optional<std::chrono::hours> recent = std::nullopt) {
        const FilePath root = folder_ / "archive";
        KeptDigests kept(disk_, folder_ / "state", root);
        return *ArchiveVerification(disk_, clock_, kept).run(root, recent, [](const auto&) {}, {});
    }
    std::vector<std::pair<Kind, std::string>> findings() {
        std::vector<std::pair<Kind, std::string>> found;
        const VerificationOutcome outcome = verify();
        for (const ArchiveFinding& one : outcome.findings) {
            found.emplace_back(one.kind, one.name + (one.other.empty() ? "" : " -> " + one.other));
        }
        return found;
    }
    Checksum checksumOf(const std::string& name) const {
        return {name,
                *StreamingHashService::computeSHA256(real_, (folder_ / "archive").appending(name),
                                                     StreamingHashService::chunkSize, [] { return false; })};
    }
    void list(const std::vector<std::string>& names) {
        std::vector<Checksum> checksums;
        for (const std::string& name : names) {
            checksums.push_back(checksumOf(name));
        }
        ASSERT_TRUE(ChecksumList::extend(disk_, folder_ / "archive", checksums));
    }
    /// The number of the archive's files that `work` opens.
    template<class Work>
    int openedInArchive(Work work) {
        int count = 0;
        disk_.beforeEachCall([&](const DiskCall& call) {
            count += call.operation == "openForReading" && call.path.liesIn(folder_ / "archive/2021") ? 1 : 0;
        });
        work();
        disk_.beforeEachCall([](const DiskCall&) {});
        return count;
    }

    TempFolder folder_;
    PosixFileSystem real_;
    FaultyFileSystem disk_{real_};
    FakeClock clock_{
        std::chrono::time_point_cast<std::chrono::microseconds>(std::chrono::system_clock::now())};
};

TEST_F(ProofTest, ACardMayGoOnlyWhenEachOfItsMediaFilesStandsInTheArchive) {
    const CheckOutcome outcome = check();
    EXPECT_TRUE(outcome.isComplete());
    EXPECT_EQ(outcome.mediaFiles, 3);
    EXPECT_THAT(outcome.otherFiles, ElementsAre(Pair("txt", 1), Pair("xmp", 1)));

    write("archive/2021/MVI_0003.MP4", "a movi\xE5"); // one bit differs
    EXPECT_THAT(missing(), ElementsAre("MVI_0003.MP4"));
    write("archive/2021/renamed.mp4", "a movie");
    EXPECT_THAT(missing(), IsEmpty()) << "the name does not count";
    remove("archive/2021/IMG_0001_2.JPG");
    EXPECT_THAT(missing(), ElementsAre("IMG_0002.JPG"));
    write("card/library.photoslibrary/masters/inside.jpg", "hidden in a document");
    EXPECT_THAT(missing(), testing::Contains("inside.jpg"));
    std::filesystem::create_hard_link((folder_ / "card/DCIM/100CANON/IMG_0002.JPG").bytes(),
                                      (folder_ / "archive/2021/link.jpg").bytes());
    EXPECT_THAT(missing(), testing::Contains("IMG_0002.JPG")) << "a second name is no second file";

    EXPECT_FALSE(check(false, "card/MISC").isComplete()) << "nothing was proven";
    EXPECT_TRUE(check(false, "archive/2021").refusal);
    EXPECT_TRUE(check(false, "card", "card/DCIM").refusal);
    EXPECT_TRUE(check(false, "card", "archive", "archive/2021").refusal)
        << "its files would prove each other";
}

TEST_F(ProofTest, WhatCannotBeReadIsMissing) {
    const auto isMissedAt = [&](std::string_view name, std::string_view operation) {
        FaultyFileSystem failing(real_);
        failing.failWhen(
            [=](const DiskCall& call) {
                return call.path.lastComponent() == name && call.operation == operation;
            },
            EIO);
        KeptDigests kept(failing, {}, folder_ / "archive");
        const std::vector<FilePath> sources{folder_ / "card"};
        const CheckOutcome outcome = ArchiveCheck(failing, clock_, kept, true)
                                         .run(sources, folder_ / "archive", [](const auto&) {}, {});
        return outcome.missing.size() + outcome.problems.size() == 1 && !outcome.isComplete();
    };
    EXPECT_TRUE(isMissedAt("MVI_0003.MP4", "read"));
    EXPECT_TRUE(isMissedAt("IMG_0001_2.JPG", "openForReading"));
    EXPECT_TRUE(isMissedAt("MISC", "next"));
    std::filesystem::create_symlink("IMG_0001.JPG", (folder_ / "card/DCIM/100CANON/link.jpg").bytes());
    EXPECT_FALSE(check().isComplete()) << "where a link leads may not be on the card";
}

TEST_F(ProofTest, ASecondCheckReadsOnlyWhatHasChangedInTheArchive) {
    EXPECT_GE(openedInArchive([&] { check(); }), 3);
    EXPECT_EQ(openedInArchive([&] { EXPECT_EQ(check().keptDigests, 3); }), 0);
    write("archive/2021/MVI_0003.MP4", "a Movie");
    EXPECT_EQ(openedInArchive([&] { EXPECT_FALSE(check().isComplete()); }), 1);
    write("archive/2021/MVI_0003.MP4", "a movie");
    EXPECT_GE(openedInArchive([&] { EXPECT_TRUE(check(true).isComplete()); }), 3);
    std::filesystem::last_write_time((folder_ / "archive/2021/IMG_0001.JPG").bytes(),
                                     std::filesystem::file_time_type::clock::now());
    EXPECT_GE(openedInArchive([&] { check(); }), 1);
    EXPECT_GE(openedInArchive([&] { check(); }), 1) << "it may have changed within one tick of the clock";
}

TEST_F(ProofTest, AVerificationTellsWhatIsNotAsListed) {
    list({"2021/IMG_0001.JPG", "2021/IMG_0001_2.JPG", "2021/MVI_0003.MP4"});
    EXPECT_TRUE(verify().isSound());
    EXPECT_THAT(findings(), ElementsAre(Pair(Kind::notListed, "2019/earlier.jpg")));

    list({"2019/earlier.jpg"});
    write("archive/2021/IMG_0001.JPG", "firsT");
    remove("archive/2021/IMG_0001_2.JPG");
    std::filesystem::rename((folder_ / "archive/2021/MVI_0003.MP4").bytes(),
                            (folder_ / "archive/m.mp4").bytes());
    write("archive/foreign.txt", "somebody's");
    disk_.failWhen([](const DiskCall& call) { return call.path.lastComponent() == "earlier.jpg"; }, EIO);
    EXPECT_THAT(findings(), ElementsAre(Pair(Kind::changed, "2021/IMG_0001.JPG"),
                                        Pair(Kind::missing, "2021/IMG_0001_2.JPG"),
                                        Pair(Kind::unreadable, "2019/earlier.jpg"),
                                        Pair(Kind::moved, "2021/MVI_0003.MP4 -> m.mp4"),
                                        Pair(Kind::notListed, "foreign.txt")));
    EXPECT_FALSE(verify().isSound());
}

TEST_F(ProofTest, AListThatIsDamagedProvesNothing) {
    const Checksum sound = checksumOf("2021/IMG_0001.JPG");
    write("outside.jpg", "first");
    for (const std::string& damage :
         {ChecksumList::line({"../outside.jpg", sound.digest}), "x" + ChecksumList::line(sound).substr(1)}) {
        write("archive/SHA256SUMS", ChecksumList::line(sound) + damage);
        EXPECT_EQ(verify().damagedLines, 1);
        EXPECT_FALSE(verify().isSound());
    }
    write("archive/SHA256SUMS", "");
    EXPECT_FALSE(verify().isSound()) << "it names no file";
    write("archive/SHA256SUMS", ChecksumList::line(sound));
    EXPECT_TRUE(verify().isSound());
    ASSERT_TRUE(ChecksumList::withdraw(disk_, folder_ / "archive", [](const Checksum&) { return true; }));
    EXPECT_FALSE(real_.exists(folder_ / "archive/SHA256SUMS"));
}

TEST_F(ProofTest, AVerificationSparesWhatWasReadOfLateAndLooksUntouched) {
    list({"2021/IMG_0001.JPG", "2021/IMG_0001_2.JPG", "2021/MVI_0003.MP4"});
    verify();
    clock_.advance(20h);
    write("archive/2021/MVI_0003.MP4", "a Movie");
    const VerificationOutcome recent = verify(24h);
    EXPECT_EQ(recent.spared, 2);
    EXPECT_FALSE(recent.isSound());
    clock_.advance(20h);
    EXPECT_EQ(verify(24h).spared, 0);
    EXPECT_EQ(verify(24h).spared, 2);
    EXPECT_EQ(verify().spared, 0);
}

TEST_F(ProofTest, TheListIsOneThatSha256sumReadsWhateverTheNames) {
    const std::vector<std::string> names{"2021/IMG_0001.JPG", " blank.jpg", "*star.jpg",   "-c",
                                         "line\nfeed.jpg",    "car\rriage", "back\\slash", "\xFF.jpg"};
    for (const std::string& name : names) {
        write("archive/" + name, "content of " + name);
    }
    list({names.begin(), names.begin() + 3});
    const FilePath path = folder_ / "archive/SHA256SUMS";
    folder_.write("archive/SHA256SUMS", contentOf(path) + "0123 a line cut sh");
    list(names);
    EXPECT_TRUE(verify().isSound());
    EXPECT_EQ(verify().listed, std::ssize(names));
    const std::string before = contentOf(path);
    list(names);
    EXPECT_EQ(contentOf(path), before) << "nothing is said twice";
    if (std::system("sha256sum --version > /dev/null 2>&1") == 0) { // NOLINT(concurrency-mt-unsafe)
        const std::string command =
            "cd '" + (folder_ / "archive").bytes() + "' && sha256sum -c --status SHA256SUMS";
        EXPECT_EQ(std::system(command.c_str()), 0); // NOLINT(concurrency-mt-unsafe)
        write("archive/line\nfeed.jpg", "altered");
        EXPECT_NE(std::system(command.c_str()), 0); // NOLINT(concurrency-mt-unsafe)
    }
    ASSERT_TRUE(ChecksumList::withdraw(disk_, folder_ / "archive",
                                       [](const Checksum& one) { return one.name == "line\nfeed.jpg"; }));
    EXPECT_EQ(verify().listed, std::ssize(names) - 1);
}

} // namespace
} // namespace lumeo
