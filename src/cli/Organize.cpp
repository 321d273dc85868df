#include "cli/Organize.h"

#include "cli/Terminal.h"
#include "dates/DateDoubt.h"
#include "planning/OutputSize.h"
#include "platform/DocumentWriter.h"
#include "platform/TextFormat.h"
#include "transfer/ReportExporter.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <iostream>
#include <sstream>

namespace lumeo::cli {
namespace {

/// Hours, minutes and seconds in the form of a clock: "1:02:03", "4:05".
std::string clockText(double seconds) {
    const auto whole = static_cast<long long>(std::ceil(std::fmin(seconds, 359999.0)));
    const auto twoDigits = [](long long number) { return (number < 10 ? "0" : "") + std::to_string(number); };
    const std::string end = ":" + twoDigits(whole % 60);
    const long long minutes = whole / 60;
    return minutes < 60 ? std::to_string(minutes) + end
                        : std::to_string(minutes / 60) + ":" + twoDigits(minutes % 60) + end;
}

/// The same, but with hundredths of a second below ten seconds: "0.02 s".
std::string spanText(double seconds) {
    if (seconds >= 10) {
        return clockText(seconds);
    }
    std::ostringstream text;
    text << std::fixed << std::setprecision(2) << seconds << " s";
    return text.str();
}

bool moveIsConfirmed(const Arguments& arguments, std::size_t files, std::int64_t required) {
    if (arguments.plan.operationMode != OperationMode::move || arguments.assumeYes) {
        return true;
    }
    return confirm("Move " + TextFormat::count(static_cast<std::int64_t>(files), "file") + " (" +
                   TextFormat::byteCount(required) + ") to " +
                   printable(arguments.plan.destinationURL->bytes()) +
                   "? Each source is removed once its copy is proven.");
}

void printWantOfRoom(const AppState& state) {
    const SourceVolume& destination = *state.destinationVolume();
    printError("not enough space at " + printable(destination.url.bytes()) + ": " +
               TextFormat::byteCount(state.requiredOutputSizeBytes()) + " needed, " +
               TextFormat::byteCount(destination.freeSpaceBytes.value_or(0)) + " free; nothing was written");
}

/// This is printed before the start, because the run may take hours to reach these files.
void announceTooLarge(const Arguments& arguments, const Environment& environment, const Session& session) {
    const DiskTraits disk = environment.fileSystem.diskTraits(*arguments.plan.destinationURL);
    if (const std::int64_t count = tooLargeFiles(session.items(), disk); count > 0) {
        printError(TextFormat::count(count, "file") + (count == 1 ? " is" : " are") +
                   " too large for the disk of the archive, which takes files up to " +
                   TextFormat::byteCount(*disk.largestFile));
    }
}

void printFailures(const OperationManifest& manifest) {
    for (const FileTransactionItem& record : manifest.items) {
        if (record.status == TransactionStatus::failed) {
            printError(printable(record.originalPath.bytes()) + ": " +
                       record.errorMessage.value_or("failed"));
        }
    }
}

void printSummary(const OperationManifest& manifest, const OperationProgress& progress) {
    std::cout << (progress.isCancelled ? "Stopped" : "Done") << " after "
              << spanText(manifest.durationSeconds) << ": " << TextFormat::number(progress.verifiedCount)
              << " verified (" << TextFormat::byteCount(manifest.totalTransferredBytes) << "), "
              << TextFormat::number(progress.skippedCount) << " skipped, "
              << TextFormat::number(progress.errorsCount) << " failed";
    if (progress.processedCount < progress.totalFiles) {
        std::cout << ", " << TextFormat::number(progress.totalFiles - progress.processedCount)
                  << " not reached";
    }
    std::cout << ".\n";
}

/// Where dates deserve a second look, how many and where they are listed.
void printDoubts(const Arguments& arguments, std::span<const MediaItem> items) {
    const auto countOf = [items](DateDoubt doubt) { return std::ranges::count(items, doubt, dateDoubtOf); };
    const std::int64_t undated = countOf(DateDoubt::undated);
    const std::int64_t doubtful = countOf(DateDoubt::doubtful);
    if (undated + doubtful > 0) {
        std::cout << TextFormat::number(undated) << " without a date, " << TextFormat::number(doubtful)
                  << " doubtful ("
                  << (arguments.reportFile ? "listed in " + printable(arguments.reportFile->bytes())
                                           : std::string("see --report"))
                  << ").\n";
    }
}

/// Prints an error and returns false when something could not be written.
bool writeDocuments(const Arguments& arguments, const Environment& environment, const Session& session,
                    const OperationManifest& manifest, const std::string& journal) {
    bool allWritten = true;
    const auto note = [&allWritten](const FileResult<void>& written, const std::string& remedy) {
        if (!written) {
            printError(written.error().message() + remedy);
            allWritten = false;
        }
    };
    if (arguments.manifestFile) {
        const FilePath& kept = session.state().activeJournal();
        note(writeNewDocument(environment.fileSystem, journal, *arguments.manifestFile),
             " So " + printable(arguments.manifestFile->bytes()) + " is not there" +
                 (kept.empty() ? std::string(".")
                               : "; the journal of this run stands at " + printable(kept.bytes()) + "."));
    }
    if (arguments.csvFile) {
        note(writeDocument(environment.fileSystem, ReportExporter::generateCSV(manifest, session.items()),
                           *arguments.csvFile),
             "");
    }
    if (arguments.reportFile) {
        note(writeDocument(environment.fileSystem,
                           ReportExporter::generateTextReport(manifest, session.items()),
                           *arguments.reportFile),
             "");
    }
    return allWritten;
}

} // namespace

std::string runFacts(const OperationProgress& progress) {
    std::string facts = TextFormat::number(progress.processedCount) + " of " +
                        TextFormat::count(progress.totalFiles, "file") + "  " +
                        TextFormat::byteCount(progress.transferredBytes) + " of " +
                        TextFormat::byteCount(progress.totalBytes);
    if (progress.currentThroughputBytesPerSec > 0) {
        facts += "  " +
                 TextFormat::byteCount(static_cast<std::int64_t>(progress.currentThroughputBytesPerSec)) +
                 "/s";
    }
    if (progress.estimatedSecondsRemaining > 0) {
        facts += "  " + clockText(progress.estimatedSecondsRemaining) + " left";
    }
    if (progress.errorsCount > 0) {
        facts += "  " + TextFormat::number(progress.errorsCount) + " failed";
    }
    return facts;
}

ExitStatus organize(const Arguments& arguments, const Environment& environment, Session& session) {
    const AppState& state = session.state();
    announceTooLarge(arguments, environment, session);
    if (!session.items().empty() &&
        !moveIsConfirmed(arguments, session.items().size(), state.requiredOutputSizeBytes())) {
        printError("nothing was moved");
        return ExitStatus::interrupted;
    }
    if (environment.interrupt.requested()) { // while the question was open
        printError("interrupted before anything was written");
        return ExitStatus::interrupted;
    }
    const RunOutcome outcome = session.organize();
    if (!outcome.journal && environment.interrupt.requested()) { // while the free space was measured
        printError("interrupted before anything was written");
        return ExitStatus::interrupted;
    }
    if (!outcome.journal && state.runRefusal()) {
        printError(state.runRefusal()->sentence + "; nothing was written");
        return state.runRefusal()->reason == RunRefusal::Reason::archiveInUse ? ExitStatus::archiveInUse
                                                                              : ExitStatus::someFailed;
    }
    if (!outcome.journal) {
        printWantOfRoom(state);
        return ExitStatus::noSpace;
    }
    if (!state.journalProblem().empty()) {
        printError(state.journalProblem());
    }
    const OperationManifest& manifest = *outcome.journal;
    const std::string journal = encode(manifest).dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
    // The documents come before the output, because the reader of the output may be gone.
    const bool allWritten = writeDocuments(arguments, environment, session, manifest, journal);
    printFailures(manifest);
    for (const std::string& notice : manifest.notices) {
        printError(notice);
    }
    if (arguments.json) {
        std::cout << journal;
    } else if (!arguments.quiet) {
        printSummary(manifest, state.operationProgress());
        printDoubts(arguments, session.items());
    }
    if (outcome.isCancelled) {
        return ExitStatus::interrupted;
    }
    const bool isAllWell =
        state.operationProgress().errorsCount == 0 && manifest.notices.empty() && allWritten;
    return isAllWell ? ExitStatus::success : ExitStatus::someFailed;
}

} // namespace lumeo::cli
