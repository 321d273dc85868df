#include "cli/Verify.h"

#include "cli/Terminal.h"
#include "model/Json.h"
#include "platform/TextFormat.h"
#include "proof/ArchiveVerification.h"

#include <cerrno>
#include <iostream>

namespace lumeo::cli {
namespace {

std::string_view kindName(ArchiveFinding::Kind kind) {
    switch (kind) {
    case ArchiveFinding::Kind::changed:
        return "changed";
    case ArchiveFinding::Kind::missing:
        return "missing";
    case ArchiveFinding::Kind::unreadable:
        return "unreadable";
    case ArchiveFinding::Kind::moved:
        return "moved";
    case ArchiveFinding::Kind::notListed:
        break;
    }
    return "not listed";
}

void printLines(const VerificationOutcome& outcome, const FilePath& archive) {
    for (const ArchiveFinding& finding : outcome.findings) {
        JsonWriter writer;
        writer.set("finding", kindName(finding.kind));
        writer.setFileUrl("file", archive.appending(finding.name));
        if (!finding.other.empty()) {
            writer.setFileUrl("nowAt", archive.appending(finding.other));
        }
        std::cout << std::move(writer).take().dump() << '\n';
    }
    JsonWriter writer;
    writer.set("listedFiles", outcome.listed);
    writer.set("unchangedFiles", outcome.unchanged);
    writer.set("sparedFiles", outcome.spared);
    writer.set("damagedLines", outcome.damagedLines);
    writer.set("isSound", outcome.isSound());
    std::cout << std::move(writer).take().dump() << '\n';
}

void printText(const VerificationOutcome& outcome) {
    for (const ArchiveFinding& finding : outcome.findings) {
        std::cout << kindName(finding.kind) << ": " << printable(finding.name);
        if (!finding.other.empty()) {
            std::cout << " -> " << printable(finding.other);
        }
        std::cout << '\n';
    }
    std::cout << TextFormat::number(outcome.unchanged) << " of "
              << TextFormat::count(outcome.listed, "listed file") << " unchanged";
    if (outcome.spared > 0) {
        std::cout << ", " << TextFormat::number(outcome.spared) << " of them not read again";
    }
    std::cout << ".\n";
    if (outcome.damagedLines > 0) {
        std::cout << TextFormat::count(outcome.damagedLines, "line")
                  << " of the list cannot be read, so the files that they named are not proven.\n";
    }
    if (outcome.listed == 0) {
        std::cout << "The list names no file, so nothing is proven.\n";
    }
}

} // namespace

std::string readingFacts(const ReadingProgress& progress) {
    std::string facts =
        TextFormat::number(progress.files) + " of " + TextFormat::count(progress.totalFiles, "file");
    if (progress.totalBytes > 0) {
        facts += "  " + TextFormat::byteCount(progress.bytes) + " of " +
                 TextFormat::byteCount(progress.totalBytes);
    }
    return facts;
}

ExitStatus verify(const Arguments& arguments, const Environment& environment) {
    KeptDigests kept(environment.fileSystem, KeptDigests::userFolder(), arguments.archive);
    std::optional<std::chrono::hours> recent;
    if (arguments.sinceDays) {
        recent = std::chrono::days(*arguments.sinceDays);
    }
    const FileResult<VerificationOutcome> outcome = [&] {
        StatusLine status(environment.clock, arguments.quiet);
        return ArchiveVerification(environment.fileSystem, environment.clock, kept)
            .run(
                arguments.archive, recent,
                [&status](const ReadingProgress& progress) {
                    if (status.isDue()) {
                        status.show(readingFacts(progress), progress.currentItemName);
                    }
                },
                environment.interrupt.token());
    }();
    if (!outcome) {
        printError(outcome.error().errnoValue == ENOENT
                       ? "there is no list of checksums in " + printable(arguments.archive.bytes()) +
                             "; organize --checksums makes one"
                       : outcome.error().message());
        return outcome.error().errnoValue == ENOENT ? ExitStatus::wrongUsage : ExitStatus::someFailed;
    }
    if (arguments.json) {
        printLines(*outcome, arguments.archive);
    } else if (!arguments.quiet) {
        printText(*outcome);
    }
    if (outcome->isStopped) {
        printError("interrupted; not every file was read");
        return ExitStatus::interrupted;
    }
    return outcome->isSound() ? ExitStatus::success : ExitStatus::someFailed;
}

} // namespace lumeo::cli
