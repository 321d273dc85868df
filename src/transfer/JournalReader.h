#pragma once

#include "platform/FileSystem.h"
#include "platform/Result.h"
#include "transfer/OperationManifest.h"

#include <cstdint>
#include <optional>
#include <string>

namespace lumeo {

/// How a run ended, as far as its journal tells.
enum class RunState : std::uint8_t {
    finished,
    cancelled,
    unfinished, ///< cut off by a crash, a kill or a loss of power
    undone,     ///< taken back, as far as it went
};

/// A journal that was read and found to be safe to follow.
struct ReadJournal {
    OperationManifest manifest;
    std::int64_t totalFiles = 0; ///< that the run was to handle
    RunState state = RunState::finished;
    bool isDismissed = false; ///< the user does not want to hear of it any more
};

/// What stands at the two ends of a journal that a run kept itself.
struct JournalSummary {
    OperationManifest head; ///< without records
    std::int64_t totalFiles = 0;
    std::int64_t verifiedFiles = 0;
    bool hasRecords = true;
    RunState state = RunState::unfinished;
    bool isDismissed = false;
};

/// Reads that, and the records between only of a run that was cut off.
Result<JournalSummary, std::string> readJournalSummary(const FileSystem& fileSystem, const FilePath& path);

/// Reads a journal that a run kept itself (see RunJournal), or the JSON that `encode(manifest)` gives. A last
/// line that was cut short is left out. The error is a sentence for a person, in lower case and without a
/// full stop. Blocks; any thread may call.
///
/// A journal may come from a stranger, and an undo removes and moves files. So it is refused whole unless
/// each verified record leads from a media file below one of its sources to one below its archive, by
/// absolute paths without "." and "..", with two equal digests, and no destination comes twice.
Result<ReadJournal, std::string> readJournal(const FileSystem& fileSystem, const FilePath& path);

} // namespace lumeo
