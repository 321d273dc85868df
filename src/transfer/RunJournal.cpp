#include "transfer/RunJournal.h"

#include "platform/DateText.h"
#include "transfer/FolderFlusher.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace lumeo {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::nanoseconds flushInterval = 1s;

/// "2026-11-23T20-31-05.000123Z_<run>.journal". Such names sort by time, even for runs within one second, and
/// every file system accepts them.
std::string nameOf(const OperationManifest& head) {
    const auto second = std::chrono::floor<std::chrono::seconds>(head.timestamp);
    const std::string micros = std::to_string((head.timestamp - second).count());
    std::string date = DateText::iso8601Utc(head.timestamp);
    date.pop_back(); // the Z
    std::ranges::replace(date, ':', '-');
    return date + "." + std::string(6 - micros.size(), '0') + micros + "Z_" + head.id.text() + ".journal";
}

Json headLine(const OperationManifest& head, std::int64_t files) {
    JsonWriter writer;
    writer.set(JournalKeys::version, journalVersion);
    encodeHead(writer, head);
    std::vector<std::string> foreign;
    for (const FilePath& root : head.foreignRoots) {
        foreign.push_back(root.fileUrl());
    }
    writer.set(JournalKeys::foreignRoots, foreign);
    writer.set(JournalKeys::files, files);
    return std::move(writer).take();
}

Json endLine(const OperationProgress& progress) {
    JsonWriter writer;
    writer.set(JournalKeys::end, progress.isCancelled ? "cancelled" : "finished");
    writer.set("verifiedCount", progress.verifiedCount);
    writer.set("totalTransferredBytes", progress.transferredBytes);
    writer.set("durationSeconds", progress.elapsedSeconds);
    return std::move(writer).take();
}

} // namespace

FileResult<std::unique_ptr<RunJournal>> RunJournal::begin(FileSystem& fileSystem, const Clock& clock,
                                                          const FilePath& folder,
                                                          const OperationManifest& head, std::int64_t files) {
    FolderFlusher folders(fileSystem);
    if (const auto created = folders.createFolders(folder); !created) {
        return created.error();
    }
    FilePath path = folder.appending(nameOf(head));
    FileResult<std::unique_ptr<WritableFile>> file = fileSystem.createFile(path, FileAccess::ownerOnly);
    if (!file) {
        return file.error();
    }
    // The lock is not needed for safety. Without it, the working run only looks cut off to others.
    static_cast<void>((*file)->lock());
    std::unique_ptr<RunJournal> journal(new RunJournal(clock, std::move(path), *std::move(file)));
    journal->write(headLine(head, files));
    journal->flush();
    folders.note(folder);
    if (const FileResult<void> durable = folders.flushPathTo(folder); !durable) {
        return durable.error();
    }
    if (journal->problem_) {
        return *journal->problem_;
    }
    return journal;
}

void RunJournal::add(const FileTransactionItem& record) {
    if (last_ != record) {
        write(encode(record));
        last_ = record;
    }
    if (clock_.elapsed() - lastFlush_ >= flushInterval) {
        flush();
    }
}

FileResult<void> RunJournal::addDurably(const FileTransactionItem& record) {
    write(encode(record));
    last_ = record;
    flush();
    return problem_ ? FileResult<void>(*problem_) : FileResult<void>();
}

void RunJournal::flush() {
    if (problem_ || isFlushed_) {
        return;
    }
    if (const FileResult<void> flushed = file_->flush(); !flushed) {
        problem_ = flushed.error();
    }
    isFlushed_ = true;
    lastFlush_ = clock_.elapsed();
}

void RunJournal::end(const OperationProgress& progress) {
    write(endLine(progress));
    flush();
}

/// Nothing is written after a failure, because nothing after half a line could be read.
void RunJournal::write(const Json& line) {
    if (problem_) {
        return;
    }
    const std::string text = line.dump(-1, ' ', false, Json::error_handler_t::replace) + '\n';
    if (const FileResult<void> written = file_->write(std::as_bytes(std::span(text))); !written) {
        problem_ = written.error();
    }
    isFlushed_ = false;
}

} // namespace lumeo
