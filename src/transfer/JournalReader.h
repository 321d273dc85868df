#pragma once

#include "platform/FileSystem.h"
#include "platform/Result.h"
#include "transfer/OperationManifest.h"

#include <cstdint>
#include <optional>
#include <string>

namespace lumeo {

/// How a run ended, according to its journal.
enum class RunState : std::uint8_t {
    finished,
    cancelled,
    unfinished, ///< ended by a crash, a kill or a loss of power
    undone,     ///< undone, as far as that was possible
};

/// A journal that was read and found safe to follow.
struct ReadJournal {
    OperationManifest manifest;
    std::int64_t totalFiles = 0; ///< the number of files that the run was to handle
    RunState state = RunState::finished;
    bool isDismissed = false; ///< the user does not want to see it any more
};

/// What the first and the last line of a run's own journal tell.
struct JournalSummary {
    OperationManifest head; ///< without records
    std::int64_t totalFiles = 0;
    std::int64_t verifiedFiles = 0;
    bool hasRecords = true;
    RunState state = RunState::unfinished;
    bool isDismissed = false;
};

/// Reads the two ends of the journal. Reads the records between them only if the run was cut off.
Result<JournalSummary, std::string> readJournalSummary(const FileSystem& fileSystem, const FilePath& path);

/// Reads a journal that a run kept itself (see RunJournal), or the JSON of `encode(manifest)`. A last line
/// that was cut short is left out. The error is a sentence for a person, in lower case and without a full
/// stop. Blocks. Any thread may call.
///
/// A journal may come from a stranger, and an undo removes and moves files. So the whole journal is refused
/// unless every verified record passes these checks. It leads from a media file below one of its sources to
/// one below its archive. Its paths are absolute and have no "." or "..". Its two digests are equal. No
/// destination occurs twice.
Result<ReadJournal, std::string> readJournal(const FileSystem& fileSystem, const FilePath& path);

} // namespace lumeo
