#include "cli/Commands.h"

#include "cli/Catalogue.h"
#include "cli/Organize.h"
#include "cli/Terminal.h"
#include "planning/DestinationPlanner.h"
#include "platform/TextFormat.h"

#include <iostream>
#include <optional>

#include <unistd.h>

namespace lumeo::cli {
namespace {

/// What is wrong with what was asked for, found before anything is done.
std::optional<std::string> usageProblem(const Arguments& arguments, const Environment& environment) {
    for (const FilePath& source : arguments.sources) {
        if (const FileResult<FileStatus> status = environment.fileSystem.targetStatus(source); !status) {
            return "the source cannot be used: " + status.error().message();
        }
    }
    if (arguments.plan.destinationURL) {
        // The run makes the folders that are missing, but not through a file.
        const FilePath nearest = environment.fileSystem.nearestExisting(*arguments.plan.destinationURL);
        const FileResult<FileStatus> status = environment.fileSystem.targetStatus(nearest);
        if (!status || status->kind != FileKind::folder) {
            return "the destination is not a folder: " + printable(nearest.bytes());
        }
    }
    if (arguments.manifestFile) {
        const FilePath folder = arguments.manifestFile->parent();
        const FileResult<FileStatus> status = environment.fileSystem.targetStatus(folder);
        if (!status || status->kind != FileKind::folder) {
            return "there is no folder for the journal: " + printable(folder.bytes());
        }
    }
    if (arguments.command == Command::organize && arguments.plan.operationMode == OperationMode::move &&
        !arguments.assumeYes && !isTerminal(STDIN_FILENO)) {
        return "moving removes the sources; without a terminal to ask on, say --yes";
    }
    return std::nullopt;
}

void printReport(const Arguments& arguments, const Catalogue& catalogue) {
    if (arguments.json) {
        printJson(catalogue);
        return;
    }
    if (arguments.quiet) {
        return;
    }
    printCounters(catalogue.progress);
    if (catalogue.items.empty()) {
        return;
    }
    std::cout << '\n';
    if (arguments.command == Command::scan) {
        printItems(catalogue.items);
    } else {
        printPlan(catalogue.items);
    }
}

} // namespace

ExitStatus runCommand(const Arguments& arguments, const Environment& environment) {
    if (const std::optional<std::string> problem = usageProblem(arguments, environment)) {
        printError(*problem);
        return ExitStatus::wrongUsage;
    }

    Catalogue catalogue = scanSources(arguments, environment);
    const auto unreadable = catalogue.progress.errorsCount;
    if (unreadable > 0) {
        printError(TextFormat::number(unreadable) + " entries of the sources could not be read");
    }
    if (catalogue.progress.isCancelled) {
        if (arguments.command == Command::scan) {
            printReport(arguments, catalogue);
        }
        printError("interrupted while scanning; nothing was written");
        return ExitStatus::interrupted;
    }
    DestinationPlanner::plan(catalogue.items, arguments.plan, environment.fileSystem,
                             environment.interrupt.token());
    ExitStatus status = ExitStatus::success;
    if (arguments.command == Command::organize) {
        if (environment.interrupt.requested()) {
            printError("interrupted while planning; nothing was written");
            return ExitStatus::interrupted;
        }
        status = organize(arguments, environment, catalogue);
    } else {
        printReport(arguments, catalogue);
    }
    // An unread folder may hold photos that the archive now lacks: that is not "all well".
    return status == ExitStatus::success && unreadable > 0 ? ExitStatus::someFailed : status;
}

} // namespace lumeo::cli
