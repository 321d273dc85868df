#include "transfer/RunJournal.h"

#include "TransferWorld.h"
#include "platform/PosixFileSystem.h"
#include "support/FakeClock.h"
#include "support/FaultyFileSystem.h"
#include "transfer/FileOperationEngine.h"
#include "transfer/JournalReader.h"
#include "transfer/RunJournals.h"
#include "transfer/UndoEngine.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <functional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace lumeo {
namespace {

using ::testing::HasSubstr;

/// Files whose names and contents are difficult for the format: a line feed, and bytes that are not text.
class RunJournalTest : public ::testing::Test {
protected:
    RunJournalTest() {
        world.add("a.jpg", "content of a", "2021/a.jpg");
        world.add("b\n\xFF.jpg", "content of b", "2021/b\n\xFF.jpg");
        world.add("c.mov", "content of c", "2022/c.mov");
    }

    OperationManifest run(OperationMode mode) {
        const OrganizationPlan plan = world.plan(mode);
        PreparedRun prepared = world.prepared(real, plan);
        return FileOperationEngine(real, clock).execute(prepared, world.items, plan, [](const auto&) {});
    }

    [[nodiscard]] FilePath write(const std::string& name, const std::string& text) const {
        std::ofstream(world.journalFolder().appending(name).bytes(), std::ios::binary) << text;
        return world.journalFolder().appending(name);
    }

    [[nodiscard]] RunJournals journals() { return {real, world.journalFolder()}; }

    TransferWorld world;
    PosixFileSystem real;
    FakeClock clock;
};

TEST_F(RunJournalTest, HoldsWhatTheRunReturns) {
    const OperationManifest manifest = run(OperationMode::move);
    const Result<ReadJournal, std::string> read = readJournal(real, world.journal());
    ASSERT_TRUE(read) << read.error();
    EXPECT_EQ(read->manifest, manifest);
    EXPECT_EQ(read->state, RunState::finished);
    EXPECT_EQ(read->totalFiles, 3);
    struct stat file {};
    ASSERT_EQ(stat(world.journal().c_str(), &file), 0);
    EXPECT_EQ(file.st_mode & 0777U, 0600U);
}

TEST_F(RunJournalTest, CutAtAnyByteTellsTheWholeRecordsBeforeTheCut) {
    const OperationManifest manifest = run(OperationMode::copy);
    const std::string whole = contentOf(world.journal());
    const std::size_t head = whole.find('\n') + 1;
    for (std::size_t size = 0; size < whole.size(); ++size) {
        SCOPED_TRACE(size);
        const FilePath cut = write("cut.journal", whole.substr(0, size));
        if (size >= head && size % 7 == 0) {
            ASSERT_TRUE(journals().dismiss(cut)); // a mark after an incomplete line
        }
        const Result<ReadJournal, std::string> read = readJournal(real, cut);
        ASSERT_EQ(read.hasValue(), size >= head);
        if (read) {
            const auto records = std::count(whole.begin(), whole.begin() + std::ptrdiff_t(size), '\n') - 1;
            // The line feed may be the only missing byte of a record.
            const auto found = std::ssize(read->manifest.items);
            EXPECT_TRUE(found == std::min<std::ptrdiff_t>(records, 3) ||
                        (found == records + 1 && whole[size] == '\n'));
            EXPECT_TRUE(
                std::equal(read->manifest.items.begin(), read->manifest.items.end(), manifest.items.begin()));
            EXPECT_EQ(read->isDismissed, size % 7 == 0);
            EXPECT_EQ(read->state == RunState::finished, size + 1 == whole.size());
        }
    }
}

TEST_F(RunJournalTest, AMoveThatCannotWriteItRemovesNoMoreSources) {
    FaultyFileSystem full(real);
    const OrganizationPlan plan = world.plan(OperationMode::move);
    Result<PreparedRun, RunRefusal> prepared = world.prepare(real, full, plan);
    ASSERT_TRUE(prepared);
    full.failAction(FileAction::write, ENOSPC);
    const OperationManifest manifest =
        FileOperationEngine(real, clock).execute(*prepared, world.items, plan, [](const auto&) {});
    for (const FileTransactionItem& record : manifest.items) {
        EXPECT_EQ(record.status, TransactionStatus::failed);
        EXPECT_THAT(*record.errorMessage, HasSubstr("could not be written: No space left on device."));
    }
    world.expectSourcesIntact();

    EXPECT_EQ(world.prepare(real, full, plan).error().reason, RunRefusal::Reason::archiveInUse);
    prepared->archive = world
                            .prepared(real,
                                      [&] {
                                          OrganizationPlan other = plan;
                                          other.destinationURL = world.archived("other");
                                          return other;
                                      }())
                            .archive;
    EXPECT_EQ(world.prepare(real, full, plan).error().reason, RunRefusal::Reason::noJournal);
    const Result<PreparedRun, RunRefusal> copy = world.prepare(real, full, world.plan(OperationMode::copy));
    ASSERT_TRUE(copy);
    EXPECT_THAT(copy->journalProblem, HasSubstr("no journal of this run can be kept"));
}

TEST_F(RunJournalTest, IsRefusedUnlessItLeadsFromASourceIntoTheArchiveWithProof) {
    const OperationManifest good = run(OperationMode::move);
    using Mutation = std::function<void(OperationManifest&, FileTransactionItem&)>;
    const auto to = [](FilePath FileTransactionItem::*field, const FilePath& path) -> Mutation {
        return [field, path](OperationManifest&, FileTransactionItem& record) { record.*field = path; };
    };
    const FilePath root = world.archived("");
    const FilePath source = world.source("");
    const std::vector<std::pair<std::string, Mutation>> wrong{
        {"victim outside", to(&FileTransactionItem::destinationPath, source.appending("victim.jpg"))},
        {"by ..", to(&FileTransactionItem::destinationPath, root.appending("../source/a.jpg"))},
        {"by .", to(&FileTransactionItem::destinationPath, root.appending("./a.jpg"))},
        {"doubled slash", to(&FileTransactionItem::destinationPath, FilePath(root.bytes() + "//a.jpg"))},
        {"relative", to(&FileTransactionItem::destinationPath, FilePath("a.jpg"))},
        {"a neighbour", to(&FileTransactionItem::destinationPath, FilePath(root.bytes() + "2/a.jpg"))},
        {"the root", to(&FileTransactionItem::destinationPath, root)},
        {"no media", to(&FileTransactionItem::destinationPath, root.appending("a.desktop"))},
        {"none", to(&FileTransactionItem::destinationPath, FilePath())},
        {"back to elsewhere", to(&FileTransactionItem::originalPath, root.appending("a.jpg"))},
        {"back by ..", to(&FileTransactionItem::originalPath, source.appending("../a.jpg"))},
        {"back as a program",
         to(&FileTransactionItem::originalPath, source.appending("autostart/a.desktop"))},
        {"unproven", [](auto&, auto& record) { record.destinationHash.reset(); }},
        {"unequal", [](auto&, auto& record) { record.sourceHash = std::string(64, '0'); }},
        {"no digest", [](auto&, auto& record) { record.sourceHash = record.destinationHash = "x"; }},
        {"twice",
         [](auto& manifest, auto& record) { manifest.items[1].destinationPath = record.destinationPath; }},
        {"no sources", [](auto& manifest, auto&) { manifest.sourceRoots.clear(); }},
        {"no archive", [](auto& manifest, auto&) { manifest.destinationRoot = FilePath(); }},
        {"archive by ..",
         [&](auto& manifest, auto&) { manifest.destinationRoot = root.appending("../archive"); }},
        {"another work", [](auto& manifest, auto&) { manifest.operationType = "erase"; }},
    };
    const std::string lines = contentOf(world.journal());
    for (const auto& [what, mutate] : wrong) {
        SCOPED_TRACE(what);
        OperationManifest bad = good;
        mutate(bad, bad.items[0]);
        const FilePath document = write("bad.json", encode(bad).dump(2));
        const Result<ReadJournal, std::string> read = readJournal(real, document);
        ASSERT_FALSE(read);
        EXPECT_THAT(read.error(), HasSubstr("nothing was touched"));
        auto journal = RunJournal::begin(real, clock, world.journalFolder().appending("made"), bad, 3);
        for (const FileTransactionItem& record : bad.items) {
            (*journal)->add(record);
        }
        EXPECT_FALSE(readJournal(real, (*journal)->path()));
        std::filesystem::remove((*journal)->path().bytes());
    }
    EXPECT_TRUE(readJournal(real, write("good.json", encode(good).dump(2))));
    // Two records, and one between them is lost.
    const std::size_t second = lines.find('\n', lines.find('\n') + 1);
    EXPECT_FALSE(
        readJournal(real, write("hole.journal", std::string(lines).replace(second - 5, 5, "xxxxx"))));
}

TEST_F(RunJournalTest, WhatIsNoJournalIsRefusedByItsFirstBytesAndItsSize) {
    std::filesystem::create_directories(world.journalFolder().bytes());
    ASSERT_EQ(mkfifo(world.journalFolder().appending("pipe").c_str(), 0600), 0);
    const std::int64_t huge = std::int64_t{5} << 30;
    for (const std::string& start :
         {std::string(), std::string("{}"), std::string("[1]"), std::string("{\"a\": 1}"),
          std::string("{\"lumeoJournal\":1,"), std::string("{\"lumeoJournal\":9,\"id\":1}\n"),
          std::string("{ \"id\": 1"), std::string(1, '\0')}) {
        const FilePath small = write("small", start);
        const FilePath large = write("large", start);
        std::filesystem::resize_file(large.bytes(), static_cast<std::uintmax_t>(huge));
        FaultyFileSystem disk(real);
        EXPECT_FALSE(readJournal(disk, small)) << start;
        EXPECT_FALSE(readJournal(disk, large)) << start;
        EXPECT_LT(disk.callCount(), 12U) << start; // 5 GB would take 80,000
    }
    EXPECT_FALSE(readJournal(real, world.journalFolder().appending("pipe")));
    EXPECT_FALSE(readJournal(real, world.journalFolder()));
}

TEST_F(RunJournalTest, RunsAreListedMarkedAndTheNewestFiftyKept) {
    run(OperationMode::copy);
    const FilePath first = world.journal();
    ASSERT_EQ(journals().list().size(), 1U);
    EXPECT_EQ(journals().list()[0].verifiedFiles, 3);
    EXPECT_TRUE(journals().list()[0].canBeUndone());
    ASSERT_TRUE(journals().markUndone(first));
    EXPECT_EQ(journals().list()[0].state, RunState::undone);
    EXPECT_TRUE(journals().list()[0].isComplete);
    // This is not a journal of the folder. It may be any file.
    const FilePath foreign = world.archived("2021/a.jpg");
    ASSERT_TRUE(journals().markUndone(foreign));
    EXPECT_EQ(contentOf(foreign), "content of a");

    OperationManifest head;
    head.operationType = "copy";
    head.destinationRoot = world.archived("");
    for (int number = 1; number <= 60; ++number) {
        head.id = Uuid::random();
        head.timestamp = codedEpoch + std::chrono::hours(300'000 + number);
        const auto journal = journals().begin(clock, head, 10);
        ASSERT_TRUE(journal);
        if (number == 60) {
            FileTransactionItem record = newRecord(world.items[0], world.archived("2021/a.jpg"));
            (*journal)->add(record);
            EXPECT_TRUE(journals().list()[0].isRunning);
        }
    }
    EXPECT_EQ(filesBelow(world.journalFolder()).size(), 50U);
    EXPECT_FALSE(isThere(first));
    const std::vector<RunEntry> runs = journals().list();
    ASSERT_EQ(runs.size(), 1U) << "those without a record are of no interest";
    EXPECT_EQ(runs[0].state, RunState::unfinished);
    EXPECT_EQ(runs[0].totalFiles, 10);
    EXPECT_FALSE(runs[0].canBeUndone());
}

} // namespace
} // namespace lumeo
