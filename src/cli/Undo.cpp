#include "cli/Undo.h"

#include "cli/Terminal.h"
#include "dates/LUMEODateFormatters.h"
#include "platform/DocumentReader.h"
#include "platform/TextFormat.h"
#include "transfer/UndoEngine.h"

#include <cstdint>
#include <iostream>
#include <variant>

namespace lumeo::cli {
namespace {

/// The journal, or a sentence that says why it cannot be trusted.
std::variant<OperationManifest, std::string> readManifest(const FileSystem& fileSystem,
                                                          const FilePath& path) {
    const FileResult<std::string> text = readDocument(fileSystem, path);
    if (!text) {
        return text.error().message();
    }
    const Json json = Json::parse(*text, nullptr, false);
    if (json.is_discarded()) {
        return "the journal is damaged or cut short; nothing was touched";
    }
    Decoded<OperationManifest> manifest = decodeOperationManifest(json);
    if (!manifest) {
        return "this is no journal of a run (" + manifest.error().message() + "); nothing was touched";
    }
    if (manifest->operationType != rawValue(OperationMode::copy) &&
        manifest->operationType != rawValue(OperationMode::move)) {
        return "this is a journal of an operation that is not known; nothing was touched";
    }
    return *std::move(manifest);
}

std::string intention(const OperationManifest& manifest, const FileSystem& fileSystem) {
    const bool isMove = manifest.operationType == rawValue(OperationMode::move);
    std::int64_t verified = 0;
    std::int64_t onlyCopies = 0;
    for (const FileTransactionItem& record : manifest.items) {
        if (record.status == TransactionStatus::verified) {
            ++verified;
            onlyCopies += isMove || fileSystem.exists(record.originalPath) ? 0 : 1;
        }
    }
    return "The run of " + LUMEODateFormatters::formattedFully(manifest.timestamp) + " to " +
           printable(manifest.destinationRoot.bytes()) + ": " + TextFormat::number(verified) +
           " files will be " + (isMove ? "moved back to where they came from" : "removed from the archive") +
           ", each only if it is unchanged." +
           (onlyCopies > 0 ? " The originals of " + TextFormat::number(onlyCopies) +
                                 " are no longer where they were: these may be the only copies."
                           : "");
}

UndoResult rollBack(const OperationManifest& manifest, const Environment& environment, bool quiet) {
    StatusLine status(environment.clock, quiet);
    return UndoEngine(environment.fileSystem)
        .rollback(
            manifest,
            [&](const UndoProgress& progress) {
                if (status.isDue()) {
                    status.show(TextFormat::number(progress.processedCount) + " of " +
                                    TextFormat::number(progress.totalFiles) + " files",
                                progress.currentItemName);
                }
            },
            environment.interrupt.token());
}

} // namespace

ExitStatus undo(const Arguments& arguments, const Environment& environment) {
    const auto read = readManifest(environment.fileSystem, *arguments.manifestFile);
    if (const auto* problem = std::get_if<std::string>(&read)) {
        printError(*problem);
        return ExitStatus::wrongUsage;
    }
    const auto& manifest = std::get<OperationManifest>(read);
    if (!arguments.quiet) {
        std::cout << intention(manifest, environment.fileSystem) << std::endl;
    }
    if (!arguments.assumeYes && !confirm("Undo it?")) {
        printError("nothing was undone");
        return ExitStatus::interrupted;
    }
    const UndoResult result = rollBack(manifest, environment, arguments.quiet);
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
    return result.failedCount > 0 ? ExitStatus::someFailed : ExitStatus::success;
}

} // namespace lumeo::cli
