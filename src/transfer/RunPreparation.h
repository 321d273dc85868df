#pragma once

#include "model/OrganizationPlan.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/Result.h"
#include "transfer/ArchiveHold.h"
#include "transfer/RunJournals.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace lumeo {

/// What a run needs before its first file: its archive, and its journal on disk.
struct PreparedRun {
    ArchiveHold archive;
    OperationManifest head;              ///< the journal without records
    std::unique_ptr<RunJournal> journal; ///< null for a copy without a journal
    std::string journalProblem;          ///< why there is no journal, for a person; empty when there is one
};

/// Takes hold of the plan's archive and starts the journal of a run over `files` files. `device` is the
/// result of deviceUnder() when the destination was chosen. The plan must have a destination.
Result<PreparedRun, RunRefusal> prepareRun(FileSystem& fileSystem, const Clock& clock,
                                           const RunJournals& journals, const OrganizationPlan& plan,
                                           std::span<const FilePath> sourceRoots, std::int64_t files,
                                           std::optional<std::uint64_t> device);

} // namespace lumeo
