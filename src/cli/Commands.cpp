#include "cli/Commands.h"

#include "cli/Catalogue.h"
#include "cli/Check.h"
#include "cli/Duplicates.h"
#include "cli/Organize.h"
#include "cli/Runs.h"
#include "cli/Session.h"
#include "cli/Terminal.h"
#include "cli/Undo.h"
#include "cli/Verify.h"
#include "model/MediaTypeDetector.h"
#include "platform/DocumentWriter.h"
#include "platform/LocalCalendar.h"
#include "platform/TextFormat.h"

#include <iostream>
#include <optional>
#include <set>

#include <unistd.h>

namespace lumeo::cli {
namespace {

/// Why a document could not be written to `file` after the run.
std::optional<std::string> documentProblem(const FilePath& file, const Environment& environment) {
    const FileResult<FileStatus> folder = environment.fileSystem.targetStatus(file.parent());
    if (!folder || folder->kind != FileKind::folder) {
        return "there is no folder " + printable(file.parent().bytes());
    }
    const FileResult<void> tried = tryDocument(environment.fileSystem, file);
    return tried ? std::nullopt : std::optional(tried.error().message());
}

/// What is wrong with the places of the run's documents. No two documents may have the same place.
std::optional<std::string> documentsProblem(const Arguments& arguments, const Environment& environment) {
    if (arguments.command != Command::organize) {
        return std::nullopt;
    }
    if (arguments.manifestFile && environment.fileSystem.exists(*arguments.manifestFile)) {
        return "a journal replaces no file, since another run may need it: " +
               printable(arguments.manifestFile->bytes());
    }
    std::set<FilePath> places;
    for (const auto& file : {arguments.manifestFile, arguments.csvFile, arguments.reportFile}) {
        if (!file) {
            continue;
        }
        if (MediaTypeDetector::detectType(*file)) {
            return "a document does not take the name of a photo or movie: " + printable(file->bytes());
        }
        if (!places.insert(*file).second) {
            return "two documents cannot have one place: " + printable(file->bytes());
        }
        if (auto problem = documentProblem(*file, environment)) {
            return problem;
        }
    }
    return std::nullopt;
}

/// What is wrong with the request. This is checked before anything is done.
std::optional<std::string> usageProblem(const Arguments& arguments, const Environment& environment) {
    for (const FilePath& source : arguments.sources) {
        if (const FileResult<FileStatus> status = environment.fileSystem.targetStatus(source); !status) {
            return "the source cannot be used: " + status.error().message();
        }
    }
    if (!arguments.archive.empty()) {
        const FileResult<FileStatus> status = environment.fileSystem.targetStatus(arguments.archive);
        if (!status || status->kind != FileKind::folder) {
            return "the archive is not a folder: " + printable(arguments.archive.bytes());
        }
    }
    if (arguments.plan.destinationURL) {
        // The run creates missing folders, but it cannot create one below a file.
        const FilePath nearest = environment.fileSystem.nearestExisting(*arguments.plan.destinationURL);
        const FileResult<FileStatus> status = environment.fileSystem.targetStatus(nearest);
        if (!status) {
            return "the destination cannot be used: " + status.error().message();
        }
        if (status->kind != FileKind::folder) {
            return "the destination is not a folder: " + printable(nearest.bytes());
        }
    }
    if (auto problem = documentsProblem(arguments, environment)) {
        return problem;
    }
    const bool isMove =
        arguments.command == Command::organize && arguments.plan.operationMode == OperationMode::move;
    if ((isMove || arguments.command == Command::undo) && !arguments.assumeYes && !isTerminal(STDIN_FILENO)) {
        return "this removes files; without a terminal to ask on, say --yes";
    }
    return std::nullopt;
}

/// What may be meant but is odd is said once, before the start.
void announceOddities(const Arguments& arguments) {
    std::set<FilePath> named;
    for (const FilePath& source : arguments.sources) {
        if (!named.insert(source).second) {
            printError("a source is given twice, and scanned once: " + printable(source.bytes()));
        }
        const std::optional<FilePath>& destination = arguments.plan.destinationURL;
        if (destination && destination->liesIn(source)) {
            printError("the archive lies in a source, so what it holds is organized again: " +
                       printable(source.bytes()));
        } else if (destination && source.liesIn(*destination)) {
            printError("a source lies in the archive: " + printable(source.bytes()));
        }
    }
    if (const std::optional<std::string> problem = LocalCalendar::timeZoneProblem()) {
        printError(*problem);
    }
}

void printReport(const Arguments& arguments, const AppState& state) {
    if (arguments.json) {
        printJson(*state.scannedItems(), state.scanProgress());
        return;
    }
    if (arguments.quiet) {
        return;
    }
    printCounters(state.scanProgress());
    if (state.scannedItems()->empty()) {
        return;
    }
    std::cout << '\n';
    if (arguments.command == Command::scan) {
        printItems(*state.scannedItems());
    } else {
        printPlan(*state.scannedItems());
    }
}

/// Fills the catalogue, and finds duplicates if they are wanted. False after an interrupt.
bool takeCatalogue(const Arguments& arguments, const Environment& environment, Session& session) {
    session.scan();
    const ScanProgress& progress = session.state().scanProgress();
    if (progress.errorsCount > 0) {
        printError(TextFormat::number(progress.errorsCount) +
                   (progress.errorsCount == 1 ? " entry" : " entries") + " of the sources could not be read");
    }
    if (!progress.isCancelled && (arguments.analyzeDuplicates || arguments.command == Command::duplicates)) {
        session.findDuplicates();
    }
    if (environment.interrupt.requested()) {
        if (arguments.command == Command::scan) {
            printReport(arguments, session.state());
        }
        printError("interrupted before anything was written");
        return false;
    }
    return true;
}

ExitStatus useCatalogue(const Arguments& arguments, const Environment& environment, Session& session) {
    if (arguments.command == Command::duplicates) {
        printDuplicates(arguments, *session.state().scannedItems(), environment.fileSystem);
        return ExitStatus::success;
    }
    if (arguments.plan.destinationURL) {
        session.plan();
    }
    if (environment.interrupt.requested()) {
        printError("interrupted before anything was written");
        return ExitStatus::interrupted;
    }
    if (arguments.command == Command::organize) {
        return organize(arguments, environment, session);
    }
    printReport(arguments, session.state());
    return ExitStatus::success;
}

ExitStatus runWithOutput(const Arguments& arguments, const Environment& environment) {
    if (const std::optional<std::string> problem = usageProblem(arguments, environment)) {
        printError(*problem);
        return ExitStatus::wrongUsage;
    }
    if (arguments.command == Command::undo) {
        return undo(arguments, environment);
    }
    if (arguments.command == Command::check) {
        return check(arguments, environment);
    }
    if (arguments.command == Command::verify) {
        return verify(arguments, environment);
    }
    if (arguments.command == Command::runs) {
        return listRuns(arguments, environment);
    }
    announceOddities(arguments);
    Session session(arguments, environment);
    if (!takeCatalogue(arguments, environment, session)) {
        return ExitStatus::interrupted;
    }
    const ExitStatus status = useCatalogue(arguments, environment, session);
    // A folder that could not be read may hold photos that the archive now lacks, so this is not a success.
    const bool isIncomplete = session.state().scanProgress().errorsCount > 0;
    return status == ExitStatus::success && isIncomplete ? ExitStatus::someFailed : status;
}

} // namespace

ExitStatus runCommand(const Arguments& arguments, const Environment& environment) {
    const ExitStatus status = runWithOutput(arguments, environment);
    std::cout.flush();
    if (std::cout) {
        return status;
    }
    printError("the output could not be written");
    return status == ExitStatus::success ? ExitStatus::someFailed : status;
}

} // namespace lumeo::cli
