#include "TransferWorld.h"

#include "hashing/StreamingHashService.h"
#include "platform/PosixFileSystem.h"

#include <csignal>
#include <filesystem>
#include <thread>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace lumeo {

FilePath memoryFolder() {
    const std::filesystem::path shared = "/dev/shm";
    std::error_code ignored;
    return FilePath(std::filesystem::is_directory(shared, ignored) ? shared
                                                                   : std::filesystem::temp_directory_path());
}

TransferWorld::TransferWorld() : folder_(memoryFolder()) {}

MediaItem& TransferWorld::add(std::string_view name, std::string content, std::string_view destination) {
    MediaItem item;
    item.id = Uuid::random();
    item.sourceURL = folder_.write("source/" + std::string(name), content);
    item.fileSize = static_cast<std::int64_t>(content.size());
    item.plannedDestinationURL = archived(destination);
    contents_[item.sourceURL] = std::move(content);
    items.push_back(std::move(item));
    return items.back();
}

FilePath TransferWorld::source(std::string_view name) const {
    return (folder_ / "source").appending(name);
}

FilePath TransferWorld::archived(std::string_view relative) const {
    return (folder_ / "archive").appending(relative);
}

const std::string& TransferWorld::content(std::string_view name) const {
    return contents_.at(source(name));
}

OrganizationPlan TransferWorld::plan(OperationMode mode) const {
    OrganizationPlan plan;
    plan.destinationURL = folder_ / "archive";
    plan.operationMode = mode;
    return plan;
}

std::vector<std::string> TransferWorld::archiveFiles() const {
    std::vector<std::string> files;
    for (const auto& [name, content] : filesBelow(archived(""))) {
        files.push_back(name);
    }
    return files;
}

void TransferWorld::expectNothingLost() const {
    for (const MediaItem& item : items) {
        const std::string& content = contents_.at(item.sourceURL);
        const bool isAtSource = isThere(item.sourceURL);
        if (isAtSource) {
            EXPECT_EQ(contentOf(item.sourceURL), content) << item.sourceURL.displayText();
        }
        EXPECT_TRUE(isAtSource || isThere(*item.plannedDestinationURL)) << item.sourceURL.displayText();
        if (isThere(*item.plannedDestinationURL)) {
            EXPECT_EQ(contentOf(*item.plannedDestinationURL), content) << item.sourceURL.displayText();
        }
    }
}

void TransferWorld::expectNoPartialFiles() const {
    for (const std::string& file : archiveFiles()) {
        EXPECT_FALSE(file.ends_with(".partial")) << file;
    }
}

void TransferWorld::expectSourcesIntact() const {
    for (const auto& [path, content] : contents_) {
        EXPECT_EQ(contentOf(path), content);
    }
}

void TransferWorld::expectAllMoved() const {
    for (const MediaItem& item : items) {
        EXPECT_FALSE(isThere(item.sourceURL)) << item.sourceURL.displayText();
    }
    expectNothingLost();
    expectNoPartialFiles();
}

Result<PreparedRun, RunRefusal> TransferWorld::prepare(FileSystem& disk, FileSystem& journalDisk,
                                                       const OrganizationPlan& plan) const {
    static const SystemClock clock;
    return prepareRun(disk, clock, RunJournals(journalDisk, journalFolder()), plan, sourceRoots(),
                      std::ssize(items), std::nullopt);
}

PreparedRun TransferWorld::prepared(FileSystem& disk, const OrganizationPlan& plan) const {
    static PosixFileSystem sound;
    Result<PreparedRun, RunRefusal> run = prepare(disk, sound, plan);
    EXPECT_TRUE(run) << run.error().sentence;
    return *std::move(run);
}

FilePath TransferWorld::journal() const {
    const auto files = filesBelow(journalFolder());
    return files.empty() ? FilePath() : journalFolder().appending(files.rbegin()->first);
}

std::string digestOf(std::string_view content) {
    const TempFolder folder(memoryFolder());
    return *StreamingHashService::computeSHA256(PosixFileSystem(), folder.write("content", content),
                                                StreamingHashService::chunkSize, [] { return false; });
}

bool isThere(const FilePath& path) {
    return PosixFileSystem().exists(path);
}

bool runInDoomedProcess(const std::function<void()>& job, std::optional<std::chrono::microseconds> patience) {
    const pid_t child = fork();
    if (child == 0) {
        job();
        _exit(0);
    }
    EXPECT_GT(child, 0);
    if (patience) {
        std::this_thread::sleep_for(*patience);
        kill(child, SIGKILL);
    }
    int ending = 0;
    EXPECT_EQ(waitpid(child, &ending, 0), child);
    return WIFSIGNALED(ending);
}

} // namespace lumeo
