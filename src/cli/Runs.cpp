#include "cli/Runs.h"

#include "cli/Terminal.h"
#include "dates/LUMEODateFormatters.h"
#include "model/Json.h"
#include "platform/TextFormat.h"

#include <iostream>

namespace lumeo::cli {
namespace {

std::string stateOf(const RunEntry& run) {
    if (run.isRunning) {
        return "running";
    }
    switch (run.state) {
    case RunState::finished:
        return "finished";
    case RunState::cancelled:
        return "cancelled";
    case RunState::undone:
        return "undone";
    case RunState::unfinished:
        break;
    }
    return "unfinished";
}

void printLines(const std::vector<RunEntry>& runs) {
    for (const RunEntry& run : runs) {
        JsonWriter writer;
        writer.set("startedAt", run.startedAt);
        writer.set("operationType", run.operationType);
        writer.setFileUrl("destinationRoot", run.destinationRoot);
        writer.set("totalFiles", run.totalFiles);
        writer.set("verifiedFiles", run.verifiedFiles);
        writer.set("state", stateOf(run));
        writer.setFileUrl("journal", run.journal);
        std::cout << std::move(writer).take().dump() << '\n';
    }
}

Cells cellsOf(const RunEntry& run) {
    return {LUMEODateFormatters::formattedFully(run.startedAt),
            run.operationType,
            stateOf(run),
            TextFormat::number(run.verifiedFiles) + " of " + TextFormat::number(run.totalFiles),
            printable(run.destinationRoot.bytes()),
            printable(run.journal.bytes())};
}

} // namespace

ExitStatus listRuns(const Arguments& arguments, const Environment& environment) {
    const std::vector<RunEntry> runs = environment.journals.list();
    if (arguments.json) {
        printLines(runs);
        return ExitStatus::success;
    }
    if (runs.empty()) {
        std::cout << "No run has left a journal in " << printable(environment.journals.folder().bytes())
                  << ".\n";
        return ExitStatus::success;
    }
    printTable(runs.size() + 1, [&runs](std::size_t row) {
        return row == 0 ? Cells{"Started", "Mode", "State", "Files", "Archive", "Journal"}
                        : cellsOf(runs[row - 1]);
    });
    return ExitStatus::success;
}

} // namespace lumeo::cli
