#include "transfer/RunPreparation.h"

namespace lumeo {
namespace {

OperationManifest headOf(const FileSystem& fileSystem, const Clock& clock, const OrganizationPlan& plan,
                         std::span<const FilePath> sourceRoots) {
    OperationManifest head;
    head.id = Uuid::random();
    head.timestamp = clock.now();
    head.operationType = rawValue(plan.operationMode);
    head.sourceRoots.assign(sourceRoots.begin(), sourceRoots.end());
    head.destinationRoot = *plan.destinationURL;
    const std::optional<std::uint64_t> system = deviceUnder(fileSystem, FilePath("/"));
    const auto noteIfForeign = [&](const FilePath& root) {
        const std::optional<std::uint64_t> device = deviceUnder(fileSystem, root);
        if (system && device && *device != *system) {
            head.foreignRoots.push_back(root);
        }
    };
    for (const FilePath& root : sourceRoots) {
        noteIfForeign(root);
    }
    noteIfForeign(head.destinationRoot);
    return head;
}

} // namespace

Result<PreparedRun, RunRefusal> prepareRun(FileSystem& fileSystem, const Clock& clock,
                                           const RunJournals& journals, const OrganizationPlan& plan,
                                           std::span<const FilePath> sourceRoots, std::int64_t files,
                                           std::optional<std::uint64_t> device) {
    Result<ArchiveHold, RunRefusal> archive = ArchiveHold::forRun(fileSystem, *plan.destinationURL, device);
    if (!archive) {
        return archive.error();
    }
    PreparedRun run{*std::move(archive), headOf(fileSystem, clock, plan, sourceRoots), nullptr, {}};
    FileResult<std::unique_ptr<RunJournal>> journal = journals.begin(clock, run.head, files);
    if (journal) {
        run.journal = *std::move(journal);
        return run;
    }
    run.journalProblem = "no journal of this run can be kept: " + journal.error().message();
    if (plan.operationMode == OperationMode::move) {
        return RunRefusal{RunRefusal::Reason::noJournal, run.journalProblem};
    }
    return run;
}

} // namespace lumeo
