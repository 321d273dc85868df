#pragma once

#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "transfer/JournalReader.h"
#include "transfer/RunJournal.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace lumeo {

/// One row in a list of runs.
struct RunEntry {
    FilePath journal;
    Instant startedAt{};
    std::string operationType; ///< "copy" or "move"
    FilePath destinationRoot;
    std::int64_t totalFiles = 0;    ///< the number of files that the run was to handle
    std::int64_t verifiedFiles = 0; ///< the number of files that it brought into the archive
    RunState state = RunState::finished;
    bool isComplete = false; ///< it ran to its end; it may have been undone since
    bool isRunning = false;  ///< now, in this process or another; `state` then has no meaning
    bool isDismissed = false;
    friend bool operator==(const RunEntry&, const RunEntry&) = default;

    [[nodiscard]] bool canBeUndone() const {
        return !isRunning && state != RunState::undone && verifiedFiles > 0;
    }
};

/// The journals of the user's runs, one file each in one folder. The newest fifty are kept. Any thread may
/// call.
class RunJournals {
public:
    /// `fileSystem` must outlive this object. `folder` is created by the first run. If it is empty, there is
    /// no place for journals.
    RunJournals(FileSystem& fileSystem, FilePath folder)
        : fileSystem_(fileSystem), folder_(std::move(folder)) {}

    /// The folder of the user's journals.
    static FilePath userFolder();

    [[nodiscard]] const FilePath& folder() const noexcept { return folder_; }

    /// Starts the journal of a run and removes the oldest journals.
    FileResult<std::unique_ptr<RunJournal>> begin(const Clock& clock, const OperationManifest& head,
                                                  std::int64_t files) const;

    /// The runs whose journals can be read, the newest first. A run that was cut off before its first file is
    /// left out.
    [[nodiscard]] std::vector<RunEntry> list() const;

    /// Notes in a journal of this folder that its run was undone. A file outside the folder is not changed.
    FileResult<void> markUndone(const FilePath& journal) const;

    /// Notes that the user does not want to see the run any more.
    FileResult<void> dismiss(const FilePath& journal) const;

private:
    [[nodiscard]] std::vector<FilePath> newestFirst() const;
    [[nodiscard]] std::optional<RunEntry> entry(const FilePath& journal) const;
    FileResult<void> mark(const FilePath& journal, std::string_view key) const;

    FileSystem& fileSystem_;
    FilePath folder_;
};

} // namespace lumeo
