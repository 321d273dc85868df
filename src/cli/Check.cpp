#include "cli/Check.h"

#include "cli/Terminal.h"
#include "cli/Verify.h"
#include "dates/LUMEODateFormatters.h"
#include "model/Json.h"
#include "platform/TextFormat.h"
#include "proof/ArchiveCheck.h"

#include <algorithm>
#include <iostream>

namespace lumeo::cli {
namespace {

std::int64_t otherCount(const CheckOutcome& outcome) {
    std::int64_t count = 0;
    for (const auto& [kind, files] : outcome.otherFiles) {
        count += files;
    }
    return count;
}

/// "36 .xmp, 2 .txt", the most frequent kind first.
std::string kinds(const CheckOutcome& outcome) {
    std::vector<std::pair<std::string, std::int64_t>> sorted(outcome.otherFiles.begin(),
                                                             outcome.otherFiles.end());
    std::ranges::stable_sort(sorted, std::ranges::greater(), [](const auto& kind) { return kind.second; });
    std::string text;
    for (const auto& [kind, files] : sorted) {
        text += (text.empty() ? "" : ", ") + TextFormat::number(files) +
                (kind.empty() ? " without an extension" : " ." + printable(kind));
    }
    return text;
}

void printLines(const CheckOutcome& outcome) {
    for (const CheckOutcome::Missing& file : outcome.missing) {
        JsonWriter writer;
        writer.setFileUrl("missing", file.path);
        writer.set("reason", file.reason);
        std::cout << std::move(writer).take().dump() << '\n';
    }
    JsonWriter writer;
    writer.set("mediaFiles", outcome.mediaFiles);
    writer.set("mediaBytes", outcome.mediaBytes);
    writer.set("missingFiles", std::ssize(outcome.missing));
    writer.set("otherFiles", otherCount(outcome));
    writer.set("keptDigests", outcome.keptDigests);
    writer.set("problems", outcome.problems);
    writer.set("isComplete", outcome.isComplete());
    std::cout << std::move(writer).take().dump(-1, ' ', false, Json::error_handler_t::replace) << '\n';
}

std::string answer(const CheckOutcome& outcome) {
    const std::int64_t missing = std::ssize(outcome.missing);
    if (outcome.mediaFiles == 0) {
        return "No media files were found, so nothing is proven.";
    }
    if (missing > 0) {
        return TextFormat::number(missing) + " of " + TextFormat::count(outcome.mediaFiles, "media file") +
               (missing == 1 ? " is" : " are") + " not in the archive.";
    }
    return outcome.isComplete() ? "All " + TextFormat::count(outcome.mediaFiles, "media file") + " (" +
                                      TextFormat::byteCount(outcome.mediaBytes) + ") are in the archive."
                                : "Not everything could be looked at, so nothing is proven.";
}

void printText(const CheckOutcome& outcome) {
    for (const CheckOutcome::Missing& file : outcome.missing) {
        std::cout << printable(file.path.bytes()) << "\n    " << file.reason << '\n';
    }
    std::cout << answer(outcome) << '\n';
    if (const std::int64_t others = otherCount(outcome); others > 0) {
        std::cout << TextFormat::count(others, "other file") << (others == 1 ? " was" : " were")
                  << " not looked at: " << kinds(outcome) << ".\n";
    }
    if (outcome.oldestKept) {
        std::cout << TextFormat::count(outcome.keptDigests, "file") << " of the archive, unchanged since, "
                  << (outcome.keptDigests == 1 ? "was" : "were") << " read on "
                  << LUMEODateFormatters::formattedFully(*outcome.oldestKept)
                  << " or later; --read-all reads all of them now.\n";
    }
}

} // namespace

ExitStatus check(const Arguments& arguments, const Environment& environment) {
    KeptDigests kept(environment.fileSystem, KeptDigests::userFolder(), arguments.archive);
    CheckOutcome outcome;
    {
        StatusLine status(environment.clock, arguments.quiet);
        outcome = ArchiveCheck(environment.fileSystem, environment.clock, kept, arguments.readAll)
                      .run(
                          arguments.sources, arguments.archive,
                          [&status](const ReadingProgress& progress) {
                              if (status.isDue()) {
                                  status.show(readingFacts(progress), progress.currentItemName);
                              }
                          },
                          environment.interrupt.token());
    }
    if (outcome.refusal) {
        printError(*outcome.refusal);
        return ExitStatus::wrongUsage;
    }
    for (const std::string& problem : outcome.problems) {
        printError(problem);
    }
    if (outcome.isStopped) {
        printError("interrupted, so nothing is proven");
        return ExitStatus::interrupted;
    }
    if (arguments.json) {
        printLines(outcome);
    } else if (!arguments.quiet) {
        printText(outcome);
    }
    return outcome.isComplete() ? ExitStatus::success : ExitStatus::someFailed;
}

} // namespace lumeo::cli
