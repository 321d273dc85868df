#pragma once

#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "transfer/OperationManifest.h"
#include "transfer/OperationProgress.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

namespace lumeo {

/// The journal of one run on disk, written during the run. It has one line of JSON for the run, one for each
/// file that was handled, and one for the end. When a run is cut off, the last line is missing, and a record
/// may be incomplete. A later record of the same file replaces the earlier one. JournalReader reads the
/// journal.
///
/// Used by the thread of the run. The file is locked as long as this object exists, so that others can tell a
/// working run from one that was cut off.
class RunJournal {
public:
    /// Creates the file, which only its owner may read. Flushes the first line and the file's name to the
    /// device. `files` is the number of files that the run is to handle. `fileSystem` and `clock` must
    /// outlive the journal.
    static FileResult<std::unique_ptr<RunJournal>> begin(FileSystem& fileSystem, const Clock& clock,
                                                         const FilePath& folder,
                                                         const OperationManifest& head, std::int64_t files);

    [[nodiscard]] const FilePath& path() const noexcept { return path_; }

    /// Why nothing more can be written, after a failure. What was flushed before stays.
    [[nodiscard]] const std::optional<FileError>& problem() const noexcept { return problem_; }

    /// Writes a record, unless it equals the last one. Flushes when a second has passed since the last flush.
    void add(const FileTransactionItem& record);

    /// Writes a record and returns when it is on the device.
    FileResult<void> addDurably(const FileTransactionItem& record);

    /// Flushes everything to the device, before something that may take long.
    void flush();

    /// Writes the end. No other call may follow.
    void end(const OperationProgress& progress);

private:
    RunJournal(const Clock& clock, FilePath path, std::unique_ptr<WritableFile> file)
        : clock_(clock), path_(std::move(path)), file_(std::move(file)), lastFlush_(clock.elapsed()) {}

    void write(const Json& line);

    const Clock& clock_;
    FilePath path_;
    std::unique_ptr<WritableFile> file_;
    std::optional<FileError> problem_;
    std::optional<FileTransactionItem> last_;
    std::chrono::nanoseconds lastFlush_;
    bool isFlushed_ = false;
};

/// The keys that distinguish the lines of a journal.
struct JournalKeys {
    static constexpr std::string_view version = "lumeoJournal"; ///< first key of the first line
    static constexpr std::string_view files = "files";
    static constexpr std::string_view foreignRoots = "foreignRootURLs";
    static constexpr std::string_view end = "end"; ///< in the last line of a run: "finished" or "cancelled"
    static constexpr std::string_view undone = "undone";       ///< in a line added when the run was undone
    static constexpr std::string_view dismissed = "dismissed"; ///< in a line added when the user has seen it
};

inline constexpr std::int64_t journalVersion = 1;

} // namespace lumeo
