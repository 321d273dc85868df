#include "model/MediaItemCoding.h"
#include "platform/PosixFileSystem.h"
#include "samples/AttackFiles.h"
#include "samples/TinyPhotos.h"
#include "support/TempFolder.h"
#include "transfer/OperationManifest.h"

#include <array>
#include <csignal>
#include <filesystem>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace lumeo {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

struct Outcome {
    int status = -1;
    std::string out;
    std::string err;
};

enum class Reader : std::uint8_t { reads, isGone, hasNoRoom };

/// A run of the real program as a script would start it: its standard input is closed, and it has its own
/// preferences and journals.
class Process {
public:
    Process(const std::vector<std::string>& arguments, const FilePath& preferences, Reader reader);

    void send(int signal) const { kill(child_, signal); }
    Outcome wait() {
        int status = 0;
        waitpid(child_, &status, 0);
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contentOf(folder_ / "out"),
                contentOf(folder_ / "err")};
    }

private:
    TempFolder folder_;
    pid_t child_ = -1;
};

Process::Process(const std::vector<std::string>& arguments, const FilePath& preferences, Reader reader) {
    const FilePath out = folder_ / "out";
    const FilePath err = folder_ / "err";
    child_ = fork();
    if (child_ == 0) {
        const auto redirect = [](const char* path, int flags, int descriptor) {
            dup2(open(path, flags, 0600), descriptor); // NOLINT(cppcoreguidelines-pro-type-vararg)
        };
        redirect("/dev/null", O_RDONLY, STDIN_FILENO);
        redirect(out.c_str(), O_WRONLY | O_CREAT, STDOUT_FILENO);
        if (reader == Reader::isGone) {
            std::array<int, 2> ends{};
            if (pipe(ends.data()) == 0) {
                close(ends[0]);
                dup2(ends[1], STDOUT_FILENO);
            }
        } else if (reader == Reader::hasNoRoom) {
            redirect("/dev/full", O_WRONLY, STDOUT_FILENO);
        }
        redirect(err.c_str(), O_WRONLY | O_CREAT, STDERR_FILENO);
        setenv("XDG_CONFIG_HOME", preferences.c_str(), 1);
        setenv("XDG_STATE_HOME", preferences.c_str(), 1);
        std::vector<std::string> words{LUMEO_CLI};
        words.insert(words.end(), arguments.begin(), arguments.end());
        std::vector<char*> argv;
        for (std::string& word : words) {
            argv.push_back(word.data());
        }
        argv.push_back(nullptr);
        execv(LUMEO_CLI, argv.data());
        _exit(127);
    }
}

Outcome lumeoCli(const std::vector<std::string>& arguments, const FilePath& preferences,
                 Reader reader = Reader::reads) {
    return Process(arguments, preferences, reader).wait();
}

std::vector<Json> jsonLines(const std::string& text) {
    std::vector<Json> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(Json::parse(line));
    }
    return lines;
}

class Cli : public ::testing::Test {
protected:
    void SetUp() override {
        source_.write("holiday/IMG_20210314_153045.jpg", "first");
        source_.write("card/IMG_20210314_153045.jpg", "second, of the same name");
        source_.write("card/undated.mov", "no movie at all");
        source_.write("card/\xFF\n.jpg", "an odd name");
        source_.write("card/letter.pdf", "no media");
    }

    [[nodiscard]] std::vector<std::string> words(std::vector<std::string> all) const {
        for (std::string& word : all) {
            if (word == "SOURCE") {
                word = source_.path().bytes();
            } else if (word == "DEST") {
                word = (archive_ / "Archive").bytes();
            }
        }
        return all;
    }
    [[nodiscard]] Outcome run(const std::vector<std::string>& all) const {
        return lumeoCli(words(all), preferences_.path());
    }

    TempFolder source_;
    TempFolder archive_;
    TempFolder preferences_;
};

TEST_F(Cli, ScanAndPlanPrintCodedItemsAndThenTheCounters) {
    for (const auto& command : {std::vector<std::string>{"scan", "SOURCE", "--json"},
                                std::vector<std::string>{"plan", "SOURCE", "--to", "DEST", "--json"}}) {
        const Outcome outcome = run(command);
        ASSERT_EQ(outcome.status, 0) << outcome.err;
        const std::vector<Json> lines = jsonLines(outcome.out);
        ASSERT_EQ(lines.size(), 5U);
        for (std::size_t i = 0; i < 4; ++i) {
            const Decoded<MediaItem> item = decodeMediaItem(lines[i]);
            ASSERT_TRUE(item) << item.error().message();
            EXPECT_TRUE(std::filesystem::exists(item->sourceURL.bytes()));
            EXPECT_EQ(item->plannedDestinationURL.has_value(), command.front() == "plan");
        }
        const Json& progress = lines.back().at("scanProgress");
        EXPECT_EQ(progress.at("photosCount"), 3);
        EXPECT_EQ(progress.at("videosCount"), 1);
        EXPECT_EQ(progress.at("totalScannedCount"), 5);
        EXPECT_EQ(progress.at("unsupportedCount"), 1);
    }
    EXPECT_FALSE(std::filesystem::exists((archive_ / "Archive").bytes())) << "a plan writes nothing";
}

TEST_F(Cli, OrganizeCopiesAndGivesTheJournal) {
    const FilePath journal = archive_ / "journal.json";
    const Outcome outcome =
        run({"organize", "SOURCE", "--to", "DEST", "--json", "--manifest", journal.bytes()});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(contentOf(journal), outcome.out);
    const Decoded<OperationManifest> manifest = decodeOperationManifest(Json::parse(outcome.out));
    ASSERT_TRUE(manifest) << manifest.error().message();
    ASSERT_EQ(manifest->items.size(), 4U);
    for (const FileTransactionItem& record : manifest->items) {
        EXPECT_EQ(record.status, TransactionStatus::verified);
        EXPECT_EQ(contentOf(record.originalPath), contentOf(record.destinationPath));
    }
    const FilePath march = archive_ / "Archive/2021/2021-03 March";
    EXPECT_TRUE(std::filesystem::exists(march.appending("IMG_20210314_153045.jpg").bytes()));
    EXPECT_TRUE(std::filesystem::exists(march.appending("IMG_20210314_153045_2.jpg").bytes()));
    EXPECT_TRUE(std::filesystem::exists((archive_ / "Archive/_Unknown Date/undated.mov").bytes()));
}

TEST_F(Cli, TakesItsPlanFromTheCommandLineAndKeepsOnlyTheSummaryOfARun) {
    const FilePath stored = preferences_.write("LUMEO/LUMEO.conf", "[General]\ndefaultOperation=move\n");
    const Outcome planned = run({"plan", "SOURCE", "SOURCE", "--to", "DEST"});
    ASSERT_EQ(planned.status, 0) << planned.err;
    EXPECT_THAT(planned.out, HasSubstr("Date inferred from filename, confidence: Medium\n"));
    EXPECT_THAT(planned.err, HasSubstr("a source is given twice"));
    EXPECT_EQ(contentOf(stored), "[General]\ndefaultOperation=move\n");
    const Outcome organized = run({"organize", "SOURCE", "--to", "DEST"});
    ASSERT_EQ(organized.status, 0) << organized.err;
    EXPECT_THAT(organized.out, HasSubstr("2 without a date, 0 doubtful (see --report).\n"));
    EXPECT_TRUE(std::filesystem::exists((source_ / "card/undated.mov").bytes())) << "a copy, as by default";
    EXPECT_THAT(contentOf(stored), HasSubstr("lastOperationSummary.v1="));
    EXPECT_THAT(contentOf(stored), Not(HasSubstr("appearanceMode")));
}

TEST_F(Cli, GivesAnEmptyCardAnEmptyJournal) {
    const TempFolder empty;
    const Outcome outcome = run({"organize", empty.path().bytes(), "--to", "DEST", "--json"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(Json::parse(outcome.out).at("items"), Json::array());
}

TEST_F(Cli, MoveNeedsAYesAndThenEmptiesTheSources) {
    const Outcome refused = run({"organize", "SOURCE", "--to", "DEST", "--mode", "move"});
    EXPECT_EQ(refused.status, 2);
    EXPECT_THAT(refused.err, HasSubstr("--yes"));
    EXPECT_FALSE(std::filesystem::exists((archive_ / "Archive").bytes()));

    const Outcome moved = run({"organize", "SOURCE", "--to", "DEST", "--mode", "move", "--yes", "--quiet"});
    EXPECT_EQ(moved.status, 0) << moved.err;
    EXPECT_EQ(moved.out, "");
    EXPECT_FALSE(std::filesystem::exists((source_ / "card/undated.mov").bytes()));
    EXPECT_TRUE(std::filesystem::exists((source_ / "card/letter.pdf").bytes()));
}

TEST_F(Cli, KeepsTheJournalOfARunThatNobodyListensToAndSaysSo) {
    for (const Reader reader : {Reader::isGone, Reader::hasNoRoom}) {
        const FilePath journal = archive_ / "run.json";
        const auto arguments =
            words({"organize", "SOURCE", "--to", "DEST", "--json", "--manifest", journal.bytes()});
        const Outcome outcome = lumeoCli(arguments, preferences_.path(), reader);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_THAT(outcome.err, HasSubstr("the output could not be written"));
        EXPECT_EQ(Json::parse(contentOf(journal)).at("items").size(), 4U);
        std::filesystem::remove(journal.bytes());
    }
}

TEST_F(Cli, TakesTheLastRunBackByTheJournalThatItKeptItself) {
    const auto before = filesBelow(source_.path());
    EXPECT_EQ(run({"undo", "--yes"}).status, 2) << "there is no run yet";
    ASSERT_EQ(run({"organize", "SOURCE", "--to", "DEST", "--mode", "move", "--yes"}).status, 0);
    const Outcome listed = run({"runs", "--json"});
    ASSERT_EQ(jsonLines(listed.out).size(), 1U) << listed.err;
    EXPECT_EQ(jsonLines(listed.out)[0].at("state"), "finished");
    EXPECT_EQ(jsonLines(listed.out)[0].at("verifiedFiles"), 4);
    EXPECT_THAT(run({"runs"}).out, HasSubstr("4 of 4"));
    const Outcome undone = run({"undo", "--yes"});
    EXPECT_EQ(undone.status, 0) << undone.err;
    EXPECT_EQ(filesBelow(source_.path()), before);
    EXPECT_EQ(jsonLines(run({"runs", "--json"}).out)[0].at("state"), "undone");
    EXPECT_EQ(run({"undo", "--yes"}).status, 2) << "nothing is left to undo";

    // A move does not start without a journal. A copy reports that it has none.
    const FilePath blocked = archive_.write("blocked", "no folder");
    EXPECT_EQ(
        lumeoCli(words({"organize", "SOURCE", "--to", "DEST", "--mode", "move", "--yes"}), blocked).status,
        1);
    EXPECT_EQ(filesBelow(source_.path()), before);
    const Outcome copied = lumeoCli(words({"organize", "SOURCE", "--to", "DEST"}), blocked);
    EXPECT_EQ(copied.status, 0) << copied.err;
    EXPECT_THAT(copied.err, HasSubstr("no journal of this run can be kept"));
}

TEST_F(Cli, ASecondRunIntoOneArchiveIsRefusedAndSaysWhoToWaitFor) {
    std::filesystem::create_directories((archive_ / "Archive").bytes());
    PosixFileSystem disk;
    const auto lock = disk.lock(archive_ / "Archive");
    const Outcome refused = run({"organize", "SOURCE", "--to", "DEST", "--mode", "move", "--yes"});
    EXPECT_EQ(refused.status, 4);
    EXPECT_THAT(refused.err, HasSubstr("(process " + std::to_string(getpid()) + ")"));
    EXPECT_EQ(filesBelow(archive_ / "Archive").size(), 0U);
}

TEST_F(Cli, TwoCardsOfOneLayoutMovedAtOnceLoseNothing) {
    std::set<std::string> contents;
    std::array<TempFolder, 2> cards;
    for (int number = 0; number < 80; ++number) {
        for (const std::size_t card : {0U, 1U}) {
            const std::string content =
                "photo " + std::to_string(number) + " of card " + std::to_string(card);
            cards.at(card).write("DCIM/IMG_" + std::to_string(1000 + number) + ".JPG", content);
            contents.insert(content);
        }
    }
    const auto move = [&](std::size_t card) {
        return Process(
            words({"organize", cards.at(card).path().bytes(), "--to", "DEST", "--mode", "move", "--yes"}),
            preferences_.path(), Reader::reads);
    };
    Process first = move(0);
    Process second = move(1);
    for (const int status : {first.wait().status, second.wait().status}) {
        EXPECT_TRUE(status == 0 || status == 4) << status;
    }
    for (const std::size_t card : {0U, 1U}) {
        EXPECT_EQ(move(card).wait().status, 0);
    }
    std::set<std::string> archived;
    for (const auto& [name, content] : filesBelow(archive_ / "Archive")) {
        archived.insert(content);
    }
    EXPECT_EQ(archived, contents);
}

TEST_F(Cli, AMoveThatALogoutEndsStopsCleanlyAndCanBeTakenBack) {
    for (int number = 0; number < 300; ++number) {
        source_.write("many/" + std::to_string(number) + ".jpg", "photo " + std::to_string(number));
    }
    const auto before = filesBelow(source_.path());
    for (const auto& signals :
         {std::array{SIGTERM, SIGHUP}, std::array{SIGHUP, SIGHUP}, std::array{SIGINT, SIGINT}}) {
        Process move(words({"organize", "SOURCE", "--to", "DEST", "--mode", "move", "--yes", "--quiet"}),
                     preferences_.path(), Reader::reads);
        const auto filesLeft = [this] {
            return std::distance(std::filesystem::directory_iterator((source_ / "many").bytes()), {});
        };
        while (filesLeft() > 280) {
            std::this_thread::yield();
        }
        move.send(signals[0]);
        move.send(signals[1]);
        EXPECT_EQ(move.wait().status, 130);
        EXPECT_EQ(jsonLines(run({"runs", "--json"}).out)[0].at("state"), "cancelled");
        const Outcome undone = run({"undo", "--yes", "--quiet"});
        EXPECT_EQ(undone.status, 0) << undone.err;
        EXPECT_EQ(filesBelow(source_.path()), before);
        EXPECT_EQ(filesBelow(archive_ / "Archive").size(), 0U);
    }
}

/// Each of these files made a decoder library hang, crash or run out of memory.
TEST_F(Cli, BringsHomeFilesThatAttackInTheMiddleOfARun) {
    const TempFolder card;
    TinyPhoto dated;
    dated.dateTimeOriginal = "2021:03:14 15:30:45";
    const std::string transport = transportStreamOfLargeFrames(1'024, 512, 400);
    std::map<std::string, std::string> files{{"heaps.jpg", crwOfDoublingHeaps()},
                                             {"nested.crw", crwOfNestedHeaps()},
                                             {"frames.ts", transport},
                                             {"noise.mov", noise(1'000'000)},
                                             {"chunks.png", pngOfManyChunks(500)},
                                             {"last.jpg", tinyJpeg(dated)}};
    for (const std::string& movie : moviesForRawNames()) {
        files.emplace("movie " + std::to_string(files.size()) + ".nef", movie);
    }
    for (const auto& [name, content] : files) {
        card.write(name, content);
    }
    const Outcome scan = run({"scan", card.path().bytes(), "--json"});
    ASSERT_EQ(scan.status, 0) << scan.err;
    const std::vector<Json> lines = jsonLines(scan.out);
    ASSERT_EQ(lines.size(), files.size() + 1);
    for (std::size_t i = 0; i < files.size(); ++i) {
        const Decoded<MediaItem> item = decodeMediaItem(lines[i]);
        ASSERT_TRUE(item);
        EXPECT_EQ(item->metadataCaptureDate.hasValue(), item->fileName() == "last.jpg") << item->fileName();
    }
    const Outcome organized = run({"organize", card.path().bytes(), "--to", "DEST", "--json"});
    ASSERT_EQ(organized.status, 0) << organized.err;
    const Decoded<OperationManifest> manifest = decodeOperationManifest(Json::parse(organized.out));
    ASSERT_TRUE(manifest);
    ASSERT_EQ(manifest->items.size(), files.size());
    for (const FileTransactionItem& record : manifest->items) {
        EXPECT_EQ(record.status, TransactionStatus::verified) << record.originalPath.bytes();
    }
}

TEST_F(Cli, TellsHowTheHelpersAreLockedIn) {
    EXPECT_THAT(run({"--version", "--verbose"}).out, HasSubstr("system call filter: yes"));
    EXPECT_THAT(run({"--version"}).out, Not(HasSubstr("filter")));
}

TEST_F(Cli, WrongUsageIsToldAndTouchesNothing) {
    const FilePath file = archive_.write("file", "not a folder");
    const std::vector<std::vector<std::string>> wrong{
        {},
        {"scan"},
        {"scan", (source_ / "nowhere").bytes()},
        {"organize", "SOURCE"},
        {"organize", "SOURCE", "--to", ""},
        {"organize", "SOURCE", "--to", "DEST", "--manifest", ""},
        {"organize", "SOURCE", "--to", "DEST", "--manifest", archive_.path().bytes()},
        {"organize", "SOURCE", "--to", "DEST", "--manifest", file.bytes()},
        {"organize", "SOURCE", "--to", "DEST", "--csv", (archive_ / "a.jpg").bytes()},
        {"organize", "SOURCE", "--to", "DEST", "--csv", "/tmp/a", "--report", "/tmp/./a"},
        {"undo", "", "--yes"},
        {"organize", "SOURCE", "--to", file.bytes()},
        {"organize", "SOURCE", "--to", file.appending("below").bytes()},
        {"organize", "SOURCE", "--to", "DEST", "--preset", "Custom"},
        {"organize", "SOURCE", "--to", "DEST", "--manifest", (archive_ / "no/folder/m.json").bytes()},
    };
    for (const auto& arguments : wrong) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 2) << ::testing::PrintToString(arguments);
        EXPECT_NE(outcome.err, "");
        EXPECT_EQ(outcome.out, "");
    }
    EXPECT_FALSE(std::filesystem::exists((archive_ / "Archive").bytes()));
}

TEST_F(Cli, AFailedFileGivesStatusOneAndItsReason) {
    // The year's folder cannot be created, because a file has its name.
    archive_.write("Archive/2021", "in the way");
    const Outcome outcome = run({"organize", "SOURCE", "--to", "DEST"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, HasSubstr("IMG_20210314_153045.jpg: "));
    EXPECT_THAT(outcome.out, HasSubstr("2 verified"));
    EXPECT_THAT(outcome.out, HasSubstr("2 failed"));
    EXPECT_EQ(contentOf(archive_ / "Archive/2021"), "in the way");
}

TEST_F(Cli, UndoTakesBackWhatIsUnchangedAndTellsTheRest) {
    source_.write("copies/again.jpg", "first");
    const FilePath journal = archive_ / "journal.json";
    const FilePath csv = archive_ / "table.csv";
    const FilePath report = archive_ / "report.txt";
    const Outcome done = run({"organize", "SOURCE", "--to", "DEST", "--analyze-duplicates", "--manifest",
                              journal.bytes(), "--csv", csv.bytes(), "--report", report.bytes()});
    ASSERT_EQ(done.status, 0) << done.err;
    EXPECT_THAT(done.out, HasSubstr("4 verified"));
    EXPECT_THAT(done.out, HasSubstr("1 skipped"));
    EXPECT_THAT(contentOf(csv), HasSubstr("Skipped (Exact Duplicate)"));
    EXPECT_THAT(contentOf(report), HasSubstr("- Verified Transfers: 4"));

    const FilePath undated = archive_ / "Archive/_Unknown Date/undated.mov";
    archive_.write("Archive/_Unknown Date/undated.mov", "edited meanwhile");
    std::filesystem::remove((source_ / "holiday/IMG_20210314_153045.jpg").bytes());
    EXPECT_EQ(run({"undo", journal.bytes()}).status, 2) << "not without a terminal or --yes";
    const Outcome undone = run({"undo", journal.bytes(), "--yes"});
    EXPECT_EQ(undone.status, 1);
    EXPECT_THAT(undone.out, HasSubstr("2 restored or removed, 0 no longer there, 2 left alone."));
    EXPECT_THAT(undone.out, HasSubstr("1 file will be left in place"));
    EXPECT_THAT(undone.err, HasSubstr("File was modified after transfer."));
    EXPECT_THAT(undone.err, HasSubstr("Left in place: its original is no longer there: "));
    EXPECT_EQ(contentOf(undated), "edited meanwhile");
    std::filesystem::remove_all((archive_ / "Archive/_Unknown Date").bytes());
    std::filesystem::remove_all(source_.path().bytes());
    EXPECT_EQ(run({"undo", journal.bytes(), "--yes"}).status, 1) << "it found nothing where all should be";

    const std::string whole = contentOf(journal);
    for (const std::string& wrong : {whole.substr(0, whole.size() / 2), std::string("{}"), std::string()}) {
        const FilePath damaged = archive_.write("damaged.json", wrong);
        const Outcome refused = run({"undo", damaged.bytes(), "--yes"});
        EXPECT_EQ(refused.status, 2);
        EXPECT_THAT(refused.err, HasSubstr("nothing was touched"));
    }
}

TEST_F(Cli, ProvesACardAndAnArchive) {
    ASSERT_EQ(run({"organize", "SOURCE", "--to", "DEST", "--checksums", "--quiet"}).status, 0);
    const Outcome checked = run({"check", "SOURCE", "--archive", "DEST"});
    EXPECT_EQ(checked.status, 0) << checked.err;
    EXPECT_THAT(checked.out, HasSubstr("All 4 media files"));
    EXPECT_THAT(checked.out, HasSubstr("1 other file was not looked at: 1 .pdf."));
    EXPECT_EQ(run({"verify", "DEST", "--quiet"}).status, 0);

    archive_.write("Archive/2021/2021-03 March/IMG_20210314_153045.jpg", "First");
    source_.write("card/new.jpg", "not copied yet");
    EXPECT_EQ(run({"check", "SOURCE", "--archive", "DEST", "--read-all"}).status, 1);
    const std::vector<Json> missing = jsonLines(run({"check", "SOURCE", "--archive", "DEST", "--json"}).out);
    EXPECT_EQ(missing.back().at("missingFiles"), 2);
    const Outcome verified = run({"verify", "DEST", "--json", "--since", "30"});
    EXPECT_EQ(verified.status, 1);
    EXPECT_EQ(jsonLines(verified.out).front().at("finding"), "changed");
    EXPECT_EQ(jsonLines(verified.out).back().at("unchangedFiles"), 3);

    EXPECT_EQ(run({"check", "SOURCE", "--archive", "SOURCE"}).status, 2);
    EXPECT_EQ(run({"verify", "SOURCE"}).status, 2) << "there is no list";
}

TEST_F(Cli, DuplicatesTellsGroupsAndWaste) {
    source_.write("copies/again.jpg", "first");
    const Outcome outcome = run({"duplicates", "SOURCE", "--json"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const Json found = Json::parse(outcome.out);
    ASSERT_EQ(found.at("groups").size(), 1U);
    EXPECT_EQ(found.at("groups").at(0).at("files").size(), 2U);
    EXPECT_EQ(found.at("reclaimableBytes"), 5);
}

} // namespace
} // namespace lumeo
