#include "cli/Organize.h"

#include "cli/Terminal.h"
#include "platform/DocumentWriter.h"
#include "platform/TextFormat.h"
#include "transfer/ReportExporter.h"

#include <cmath>
#include <iostream>

namespace lumeo::cli {
namespace {

/// Hours, minutes and seconds as a clock shows them: "1:02:03", "4:05".
std::string clockText(double seconds) {
    const auto whole = static_cast<long long>(std::ceil(std::fmin(seconds, 359999.0)));
    const auto twoDigits = [](long long number) { return (number < 10 ? "0" : "") + std::to_string(number); };
    const std::string end = ":" + twoDigits(whole % 60);
    const long long minutes = whole / 60;
    return minutes < 60 ? std::to_string(minutes) + end
                        : std::to_string(minutes / 60) + ":" + twoDigits(minutes % 60) + end;
}

bool moveIsConfirmed(const Arguments& arguments, std::size_t files, std::int64_t required) {
    if (arguments.plan.operationMode != OperationMode::move || arguments.assumeYes) {
        return true;
    }
    return confirm("Move " + TextFormat::number(static_cast<std::int64_t>(files)) + " files (" +
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
              << clockText(manifest.durationSeconds) << ": " << TextFormat::number(progress.verifiedCount)
              << " verified (" << TextFormat::byteCount(manifest.totalTransferredBytes) << "), "
              << TextFormat::number(progress.skippedCount) << " skipped, "
              << TextFormat::number(progress.errorsCount) << " failed";
    if (progress.isCancelled) {
        std::cout << ", " << TextFormat::number(progress.totalFiles - progress.processedCount)
                  << " not reached";
    }
    std::cout << ".\n";
}

/// False when something could not be written, after saying so. A journal that found no place on the disk is
/// printed: without it nothing could be undone.
bool writeDocuments(const Arguments& arguments, const Environment& environment,
                    const std::vector<MediaItem>& items, const OperationManifest& manifest,
                    const std::string& journal) {
    bool allWritten = true;
    const auto write = [&](const std::optional<FilePath>& file, const auto& document) {
        if (!file) {
            return true;
        }
        const FileResult<void> written = writeDocument(environment.fileSystem, document(), *file);
        if (!written) {
            printError(written.error().message());
            allWritten = false;
        }
        return static_cast<bool>(written);
    };
    if (!write(arguments.manifestFile, [&] { return journal; }) && !arguments.json) {
        std::cout << journal;
    }
    write(arguments.csvFile, [&] { return ReportExporter::generateCSV(manifest, items); });
    write(arguments.reportFile, [&] { return ReportExporter::generateTextReport(manifest); });
    return allWritten;
}

} // namespace

std::string runFacts(const OperationProgress& progress) {
    std::string facts = TextFormat::number(progress.processedCount) + " of " +
                        TextFormat::number(progress.totalFiles) + " files  " +
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
    if (!session.items().empty() &&
        !moveIsConfirmed(arguments, session.items().size(), state.requiredOutputSizeBytes())) {
        printError("nothing was moved");
        return ExitStatus::interrupted;
    }
    if (environment.interrupt.requested()) { // while it was asked
        printError("interrupted before anything was written");
        return ExitStatus::interrupted;
    }
    const RunOutcome outcome = session.organize();
    if (!outcome.journal && environment.interrupt.requested()) { // while the room was measured
        printError("interrupted before anything was written");
        return ExitStatus::interrupted;
    }
    if (!outcome.journal) {
        printWantOfRoom(state);
        return ExitStatus::noSpace;
    }
    const OperationManifest& manifest = *outcome.journal;
    const std::string journal = encode(manifest).dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
    // Before anything is printed, since whoever reads that may be gone.
    const bool allWritten = writeDocuments(arguments, environment, session.items(), manifest, journal);
    printFailures(manifest);
    if (arguments.json) {
        std::cout << journal;
    } else if (!arguments.quiet) {
        printSummary(manifest, state.operationProgress());
    }
    if (outcome.isCancelled) {
        return ExitStatus::interrupted;
    }
    return state.operationProgress().errorsCount > 0 || !allWritten ? ExitStatus::someFailed
                                                                    : ExitStatus::success;
}

} // namespace lumeo::cli
