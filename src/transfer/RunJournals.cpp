#include "transfer/RunJournals.h"

#include "platform/UserFolders.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <functional>

namespace lumeo {
namespace {

constexpr std::size_t journalsKept = 50;

} // namespace

FilePath RunJournals::userFolder() {
    const FilePath state = userStateFolder();
    return state.empty() ? state : state.appending("lumeo/journals");
}

FileResult<std::unique_ptr<RunJournal>> RunJournals::begin(const Clock& clock, const OperationManifest& head,
                                                           std::int64_t files) const {
    if (folder_.empty()) {
        return FileError{FileAction::create, FilePath("journal"), ENOENT};
    }
    FileResult<std::unique_ptr<RunJournal>> journal =
        RunJournal::begin(fileSystem_, clock, folder_, head, files);
    const std::vector<FilePath> all = newestFirst();
    for (std::size_t i = journalsKept; journal && i < all.size(); ++i) {
        static_cast<void>(fileSystem_.removeFile(all[i])); // an extra journal does no harm
    }
    return journal;
}

std::vector<FilePath> RunJournals::newestFirst() const {
    std::vector<FilePath> found;
    const auto walk = fileSystem_.enumerate(folder_, [](const FileError&) {});
    if (!walk) {
        return found;
    }
    while (const std::optional<DirectoryEntry> entry = (*walk)->next()) {
        if (entry->status && entry->status->kind == FileKind::regular &&
            entry->path.extension() == "journal") {
            found.push_back(entry->path);
        }
        (*walk)->skipDescendants();
    }
    std::ranges::sort(found, std::ranges::greater()); // their names begin with the date
    return found;
}

std::vector<RunEntry> RunJournals::list() const {
    std::vector<RunEntry> entries;
    for (const FilePath& journal : newestFirst()) {
        if (std::optional<RunEntry> one = entry(journal)) {
            entries.push_back(*std::move(one));
        }
    }
    return entries;
}

std::optional<RunEntry> RunJournals::entry(const FilePath& journal) const {
    const Result<JournalSummary, std::string> summary = readJournalSummary(fileSystem_, journal);
    if (!summary) {
        return std::nullopt;
    }
    RunEntry entry;
    entry.journal = journal;
    entry.startedAt = summary->head.timestamp;
    entry.operationType = summary->head.operationType;
    entry.destinationRoot = summary->head.destinationRoot;
    entry.totalFiles = summary->totalFiles;
    entry.verifiedFiles = summary->verifiedFiles;
    entry.state = summary->state;
    entry.isComplete = summary->head.isCancelled == false;
    entry.isDismissed = summary->isDismissed;
    if (entry.state == RunState::unfinished) {
        const auto lock = fileSystem_.lock(journal); // the run itself holds this lock while it works
        entry.isRunning = !lock && lock.error().errnoValue == EWOULDBLOCK;
    }
    const bool isBegun = entry.state != RunState::unfinished || entry.isRunning || summary->hasRecords;
    return isBegun ? std::optional(std::move(entry)) : std::nullopt;
}

FileResult<void> RunJournals::markUndone(const FilePath& journal) const {
    return mark(journal, JournalKeys::undone);
}

FileResult<void> RunJournals::dismiss(const FilePath& journal) const {
    return mark(journal, JournalKeys::dismissed);
}

FileResult<void> RunJournals::mark(const FilePath& journal, std::string_view key) const {
    if (journal.parent() != folder_) {
        return {};
    }
    const FileResult<std::unique_ptr<WritableFile>> file = fileSystem_.openForAppending(journal);
    if (!file) {
        return file.error();
    }
    // The line starts with a line feed, because the line before it may be cut short.
    const std::string line = "\n{\"" + std::string(key) + "\":true}\n";
    if (FileResult<void> written = (*file)->write(std::as_bytes(std::span(line))); !written) {
        return written;
    }
    return (*file)->flush();
}

} // namespace lumeo
