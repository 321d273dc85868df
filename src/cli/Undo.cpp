#include "cli/Undo.h"

#include "cli/Terminal.h"
#include "dates/LUMEODateFormatters.h"
#include "platform/TextFormat.h"
#include "transfer/UndoEngine.h"

#include <algorithm>
#include <iostream>
#include <optional>

namespace lumeo::cli {
namespace {

/// The journal of the run to undo: the one that was named, else the journal of the last run that can be
/// undone.
std::optional<FilePath> chosenJournal(const Arguments& arguments, const Environment& environment) {
    if (arguments.manifestFile) {
        return arguments.manifestFile;
    }
    const std::vector<RunEntry> runs = environment.journals.list();
    const auto found = std::ranges::find_if(runs, &RunEntry::canBeUndone);
    return found == runs.end() ? std::nullopt : std::optional(found->journal);
}

std::string intention(const OperationManifest& manifest, const Environment& environment) {
    const bool isMove = manifest.operationType == rawValue(OperationMode::move);
    const UndoForecast forecast =
        UndoEngine(environment.fileSystem).forecast(manifest, environment.interrupt.token());
    std::string text = "The run of " + LUMEODateFormatters::formattedFully(manifest.timestamp) + " to " +
                       printable(manifest.destinationRoot.bytes()) + ": " +
                       TextFormat::count(forecast.files, "file") + " will be " +
                       (isMove ? "moved back to where they came from" : "removed from the archive") +
                       ", each only if it is unchanged.";
    if (forecast.withoutOriginal > 0) {
        text += " " + TextFormat::count(forecast.withoutOriginal, "file") +
                " will be left in place, since the original is no longer there.";
    }
    return text;
}

Result<UndoResult, RunRefusal> rollBack(const OperationManifest& manifest, const FilePath& journal,
                                        const Environment& environment, bool quiet) {
    StatusLine status(environment.clock, quiet);
    return takeBack(
        environment.fileSystem, manifest, environment.journals, journal,
        [&](const UndoProgress& progress) {
            if (status.isDue()) {
                status.show(TextFormat::number(progress.processedCount) + " of " +
                                TextFormat::count(progress.totalFiles, "file"),
                            progress.currentItemName);
            }
        },
        environment.interrupt.token());
}

} // namespace

ExitStatus undo(const Arguments& arguments, const Environment& environment) {
    const std::optional<FilePath> journal = chosenJournal(arguments, environment);
    if (!journal) {
        printError("there is no run that could be undone");
        return ExitStatus::wrongUsage;
    }
    const Result<ReadJournal, std::string> read = readJournal(environment.fileSystem, *journal);
    if (!read) {
        printError(read.error());
        return ExitStatus::wrongUsage;
    }
    const OperationManifest& manifest = read->manifest;
    if (!arguments.quiet) {
        std::cout << intention(manifest, environment) << std::endl;
    }
    if (!arguments.assumeYes && !confirm("Undo it?")) {
        printError("nothing was undone");
        return ExitStatus::interrupted;
    }
    const Result<UndoResult, RunRefusal> undone = rollBack(manifest, *journal, environment, arguments.quiet);
    if (!undone) {
        printError(undone.error().sentence);
        return undone.error().reason == RunRefusal::Reason::archiveInUse ? ExitStatus::archiveInUse
                                                                         : ExitStatus::someFailed;
    }
    const UndoResult& result = *undone;
    for (const std::string& warning : result.warnings) {
        printError(printable(warning));
    }
    if (!arguments.quiet) {
        std::cout << TextFormat::number(result.restoredCount) << " restored or removed, "
                  << TextFormat::number(result.skippedCount) << " no longer there, "
                  << TextFormat::number(result.failedCount) << " left alone.\n";
    }
    if (environment.interrupt.requested()) {
        return ExitStatus::interrupted;
    }
    return result.isComplete() ? ExitStatus::success : ExitStatus::someFailed;
}

} // namespace lumeo::cli
