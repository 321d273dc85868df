#include "transfer/JournalReader.h"

#include "model/MediaTypeDetector.h"
#include "model/OrganizationPlan.h"
#include "platform/LineReader.h"
#include "transfer/RunJournal.h"

#include <algorithm>
#include <array>
#include <functional>
#include <istream>
#include <memory>
#include <sstream>
#include <streambuf>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace lumeo {
namespace {

using Problem = std::optional<std::string>;

constexpr std::string_view nothingTouched = "; nothing was touched";
/// A million records need a third of it.
constexpr std::int64_t largestJournal = std::int64_t{2} << 30;

std::string noJournal(std::string_view reason) {
    return "this is no journal of a run (" + std::string(reason) + ")" + std::string(nothingTouched);
}

std::string damaged() {
    return "the journal is damaged or cut short" + std::string(nothingTouched);
}

// ---- whether a journal may be followed ----

/// The path is absolute and in its normal form.
bool isPlain(const FilePath& path) {
    return path.bytes().starts_with('/') && FilePath::standardized(path.bytes()) == path;
}

bool isDigest(const std::string& text) {
    return text.size() == 64 && text.find_first_not_of("0123456789abcdef") == std::string::npos;
}

Problem problemOf(const FileTransactionItem& record, const OperationManifest& manifest) {
    if (!isPlain(record.destinationPath) || record.destinationPath == manifest.destinationRoot ||
        !record.destinationPath.liesIn(manifest.destinationRoot)) {
        return "a destination does not lie in the archive: " + printable(record.destinationPath.bytes());
    }
    const bool isBelowASource = std::ranges::any_of(
        manifest.sourceRoots, [&](const FilePath& root) { return record.originalPath.liesIn(root); });
    if (!isPlain(record.originalPath) || !isBelowASource) {
        return "an original does not lie in a source: " + printable(record.originalPath.bytes());
    }
    for (const FilePath* path : {&record.destinationPath, &record.originalPath}) {
        if (!MediaTypeDetector::detectType(*path)) {
            return "a run handles no such file: " + printable(path->bytes());
        }
    }
    if (!record.sourceHash || record.sourceHash != record.destinationHash || !isDigest(*record.sourceHash)) {
        return "there is no proof of a copy: " + printable(record.destinationPath.bytes());
    }
    return std::nullopt;
}

Problem problemOf(const OperationManifest& manifest) {
    if (manifest.operationType != rawValue(OperationMode::copy) &&
        manifest.operationType != rawValue(OperationMode::move)) {
        return "of an operation that is not known";
    }
    if (!isPlain(manifest.destinationRoot) && !manifest.items.empty()) {
        return "the archive has no plain path: " + printable(manifest.destinationRoot.bytes());
    }
    std::vector<std::string_view> destinations;
    for (const FileTransactionItem& record : manifest.items) {
        if (record.status != TransactionStatus::verified) {
            continue;
        }
        if (Problem problem = problemOf(record, manifest)) {
            return problem;
        }
        destinations.push_back(record.destinationPath.bytes());
    }
    std::ranges::sort(destinations);
    const auto twice = std::ranges::adjacent_find(destinations);
    return twice != destinations.end() ? Problem("a destination comes twice: " + printable(*twice))
                                       : std::nullopt;
}

// ---- the two forms of a journal ----

Problem readHead(const Json& line, ReadJournal& journal) {
    JsonReader reader(line);
    std::int64_t version = 0;
    std::vector<std::string> foreign;
    reader.require(JournalKeys::version, version);
    if (version > journalVersion) {
        return noJournal("it is of a newer version");
    }
    decodeHead(reader, journal.manifest);
    reader.require(JournalKeys::foreignRoots, foreign);
    reader.require(JournalKeys::files, journal.totalFiles);
    if (reader.error()) {
        return noJournal(reader.error()->message());
    }
    for (const std::string& url : foreign) {
        if (std::optional<FilePath> path = FilePath::fromFileUrl(url)) {
            journal.manifest.foreignRoots.push_back(*std::move(path));
        }
    }
    return std::nullopt;
}

/// Takes the lines after the first one, one by one.
class LineTaker {
public:
    explicit LineTaker(ReadJournal& journal) : journal_(journal) { journal_.state = RunState::unfinished; }

    /// False when the line does not belong to a journal.
    bool take(const std::string& line) {
        const Json json = Json::parse(line, nullptr, /*allow_exceptions=*/false);
        if (!json.is_object()) {
            return false;
        }
        if (json.contains(JournalKeys::end)) {
            return takeEnd(json);
        }
        if (json.contains(JournalKeys::undone)) {
            journal_.state = RunState::undone;
            return true;
        }
        if (json.contains(JournalKeys::dismissed)) {
            journal_.isDismissed = true;
            return true;
        }
        return takeRecord(json);
    }

    /// The number that the line for the end tells.
    [[nodiscard]] std::int64_t verifiedFiles() const noexcept { return verifiedFiles_; }

private:
    bool takeEnd(const Json& json) {
        JsonReader reader(json);
        OperationManifest& manifest = journal_.manifest;
        std::string end;
        reader.require(JournalKeys::end, end);
        reader.require("totalTransferredBytes", manifest.totalTransferredBytes);
        reader.require("durationSeconds", manifest.durationSeconds);
        reader.require("verifiedCount", verifiedFiles_);
        manifest.isCancelled = end == "cancelled";
        journal_.state = end == "cancelled" ? RunState::cancelled : RunState::finished;
        return !reader.error();
    }

    bool takeRecord(const Json& json) {
        Decoded<FileTransactionItem> record = decodeFileTransactionItem(json);
        if (!record) {
            return false;
        }
        std::vector<FileTransactionItem>& items = journal_.manifest.items;
        const auto [place, isNew] = places_.try_emplace(record->id, items.size());
        if (isNew) {
            items.push_back(*std::move(record));
        } else {
            items[place->second] = *std::move(record);
        }
        return true;
    }

    ReadJournal& journal_;
    std::int64_t verifiedFiles_ = 0;
    std::unordered_map<Uuid, std::size_t> places_;
};

Problem readFirstLine(LineReader& lines, ReadJournal& journal) {
    const std::optional<std::string> first = lines.next();
    const Json head = Json::parse(first.value_or(""), nullptr, /*allow_exceptions=*/false);
    return lines.isWhole() && !head.is_discarded() ? readHead(head, journal) : Problem(damaged());
}

/// The form that a run keeps itself. At a line that cannot be read, the journal was cut off, unless another
/// record follows. A mark may have been added later, after a line feed.
Problem readLines(LineReader& lines, ReadJournal& journal) {
    if (Problem problem = readFirstLine(lines, journal)) {
        return problem;
    }
    LineTaker taker(journal);
    bool isCut = false;
    while (const std::optional<std::string> line = lines.next()) {
        const std::size_t records = journal.manifest.items.size();
        const bool isTaken = line->empty() || taker.take(*line);
        if (isCut && journal.manifest.items.size() > records) {
            return damaged();
        }
        isCut = isCut || !isTaken;
    }
    return std::nullopt;
}

/// A file in the form of the stream that the parser reads.
class FileStream : private std::streambuf, public std::istream {
public:
    explicit FileStream(ReadableFile& file) : std::istream(static_cast<std::streambuf*>(this)), file_(file) {}

    [[nodiscard]] const std::optional<FileError>& error() const noexcept { return error_; }

private:
    using Traits = std::char_traits<char>;

    std::streambuf::int_type underflow() override {
        const FileResult<std::size_t> count = file_.read(std::as_writable_bytes(std::span(piece_)));
        if (!count) {
            error_ = count.error();
        }
        if (!count || *count == 0) {
            return Traits::eof();
        }
        setg(piece_.data(), piece_.data(), piece_.data() + *count);
        return Traits::to_int_type(piece_.front());
    }

    ReadableFile& file_;
    std::array<char, 65536> piece_{};
    std::optional<FileError> error_;
};

/// Takes the records from a document while it is parsed. If the parser held them all at once, they would take
/// several times the memory.
class RecordTaker {
public:
    /// Whether the parser should keep what it has just read.
    bool operator()(int depth, Json::parse_event_t event, const Json& parsed) {
        if (event == Json::parse_event_t::key && depth == 1) {
            isInRecords_ = parsed == "items";
        }
        if (!isInRecords_ || depth != 2 || event != Json::parse_event_t::object_end) {
            return true;
        }
        Decoded<FileTransactionItem> record = decodeFileTransactionItem(parsed);
        if (record) {
            records_.push_back(*std::move(record));
        } else if (!error_) {
            error_ =
                DecodingError{"items", "has a wrong record number " + std::to_string(records_.size() + 1) +
                                           ": " + record.error().message()};
        }
        return false;
    }

    [[nodiscard]] const std::optional<DecodingError>& error() const noexcept { return error_; }
    std::vector<FileTransactionItem> take() && { return std::move(records_); }

private:
    bool isInRecords_ = false;
    std::vector<FileTransactionItem> records_;
    std::optional<DecodingError> error_;
};

Problem readDocument(ReadableFile& file, ReadJournal& journal) {
    FileStream text(file);
    RecordTaker records;
    const Json json = Json::parse(text, std::ref(records), /*allow_exceptions=*/false);
    if (text.error()) {
        return text.error()->message();
    }
    if (json.is_discarded()) {
        return damaged();
    }
    Decoded<OperationManifest> manifest = decodeOperationManifest(json);
    if (!manifest || records.error()) {
        return noJournal((manifest ? *records.error() : manifest.error()).message());
    }
    journal.manifest = *std::move(manifest);
    journal.manifest.items = std::move(records).take();
    journal.totalFiles = std::ssize(journal.manifest.items);
    journal.state = journal.manifest.isCancelled.value_or(false) ? RunState::cancelled : RunState::finished;
    return std::nullopt;
}

/// Whether the text starts with an object whose first key belongs to a journal.
bool beginsLikeADocument(std::string_view start) {
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t brace = start.find_first_not_of(blanks);
    if (brace == std::string_view::npos || start[brace] != '{') {
        return false;
    }
    const std::size_t key = start.find_first_not_of(blanks, brace + 1);
    if (key == std::string_view::npos) {
        return false;
    }
    constexpr std::array<std::string_view, 12> keys{"\"id\"",
                                                    "\"timestamp\"",
                                                    "\"operationType\"",
                                                    "\"sourceRoots\"",
                                                    "\"items\"",
                                                    "\"sourceRootURLs\"",
                                                    "\"destinationRoot\"",
                                                    "\"destinationRootURL\"",
                                                    "\"version\"",
                                                    "\"totalTransferredBytes\"",
                                                    "\"durationSeconds\"",
                                                    "\"isCancelled\""};
    return std::ranges::any_of(keys,
                               [&](std::string_view one) { return start.substr(key).starts_with(one); });
}

} // namespace

Result<JournalSummary, std::string> readJournalSummary(const FileSystem& fileSystem, const FilePath& path) {
    constexpr std::int64_t tailSize = 4096; // the end and a few marks take some hundred bytes
    const FileResult<std::unique_ptr<ReadableFile>> file = fileSystem.openForReading(path);
    const FileResult<FileStatus> status = file ? (*file)->status() : file.error();
    if (!status) {
        return status.error().message();
    }
    ReadJournal journal;
    LineReader lines(**file);
    if (Problem problem = readFirstLine(lines, journal)) {
        return *std::move(problem);
    }
    std::array<char, tailSize> tail{};
    const FileResult<std::size_t> count = (*file)->readAt(std::max<std::int64_t>(0, status->size - tailSize),
                                                          std::as_writable_bytes(std::span(tail)));
    if (!count) {
        return count.error().message();
    }
    LineTaker taker(journal);
    std::istringstream last(std::string(tail.data(), *count));
    for (std::string line; std::getline(last, line);) {
        taker.take(line);
    }
    JournalSummary summary;
    summary.verifiedFiles = taker.verifiedFiles();
    if (!journal.manifest.isCancelled) {
        Result<ReadJournal, std::string> whole = readJournal(fileSystem, path);
        if (!whole) {
            return std::move(whole).error();
        }
        journal = *std::move(whole);
        summary.hasRecords = !journal.manifest.items.empty();
        summary.verifiedFiles = std::ranges::count(journal.manifest.items, TransactionStatus::verified,
                                                   &FileTransactionItem::status);
    }
    summary.totalFiles = journal.totalFiles;
    summary.state = journal.state;
    summary.isDismissed = journal.isDismissed;
    summary.head = std::move(journal.manifest);
    summary.head.items.clear();
    return summary;
}

Result<ReadJournal, std::string> readJournal(const FileSystem& fileSystem, const FilePath& path) {
    const FileResult<std::unique_ptr<ReadableFile>> file = fileSystem.openForReading(path);
    if (!file) {
        return file.error().message();
    }
    const FileResult<FileStatus> status = (*file)->status();
    std::array<char, 256> first{};
    const FileResult<std::size_t> count = (*file)->readAt(0, std::as_writable_bytes(std::span(first)));
    if (!status || !count) {
        return (status ? count.error() : status.error()).message();
    }
    const std::string_view start(first.data(), *count);
    const bool isOfLines = start.starts_with("{\"" + std::string(JournalKeys::version) + "\":");
    if (!isOfLines && !beginsLikeADocument(start)) {
        return noJournal("it does not begin like one");
    }
    if (status->size > largestJournal) {
        return noJournal("it is too large");
    }
    ReadJournal journal;
    LineReader lines(**file);
    Problem problem = isOfLines ? readLines(lines, journal) : readDocument(**file, journal);
    if (lines.error()) {
        return lines.error()->message();
    }
    if (problem) {
        return *std::move(problem);
    }
    if (problem = problemOf(journal.manifest); problem) {
        return noJournal(*problem);
    }
    return journal;
}

} // namespace lumeo
