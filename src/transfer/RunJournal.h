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

/// The journal of one run on disk, written while it runs: a line of JSON for the run, one for each file
/// that was handled, one for the end. A run that is cut off leaves the last one out, and perhaps part of a
/// record. A later record of the same file replaces the earlier one. JournalReader reads it back.
///
/// Used by the thread that runs. The file is locked until this object goes out of scope, so that others can
/// tell a run that works from one that was cut off.
class RunJournal {
public:
    /// Makes the file, which only its owner may read, and brings the first line and the file's name to the
    /// device. `files` is how many the run is to handle. `fileSystem` and `clock` must outlive the journal.
    static FileResult<std::unique_ptr<RunJournal>> begin(FileSystem& fileSystem, const Clock& clock,
                                                         const FilePath& folder,
                                                         const OperationManifest& head, std::int64_t files);

    [[nodiscard]] const FilePath& path() const noexcept { return path_; }

    /// Why nothing more can be written, once that is so. What was flushed before stays.
    [[nodiscard]] const std::optional<FileError>& problem() const noexcept { return problem_; }

    /// Writes a record down, unless it is the very one that was written last. It is flushed once a second
    /// has passed since the last flush.
    void add(const FileTransactionItem& record);

    /// Writes a record down and returns when it is on the device.
    FileResult<void> addDurably(const FileTransactionItem& record);

    /// Brings what was written to the device before something that may take a while.
    void flush();

    /// Writes the end down. The journal takes no further calls.
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

/// What the lines of a journal are told apart by.
struct JournalKeys {
    static constexpr std::string_view version = "lumeoJournal"; ///< first key of the first line
    static constexpr std::string_view files = "files";
    static constexpr std::string_view foreignRoots = "foreignRootURLs";
    static constexpr std::string_view end = "end"; ///< of the last line of a run: "finished" or "cancelled"
    static constexpr std::string_view undone = "undone"; ///< of a line added when the run was taken back
    static constexpr std::string_view dismissed = "dismissed"; ///< of a line added when the user has seen it
};

inline constexpr std::int64_t journalVersion = 1;

} // namespace lumeo
