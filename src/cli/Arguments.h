#pragma once

#include "model/OrganizationPlan.h"
#include "platform/FilePath.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace lumeo::cli {

/// The exit status of the program.
enum class ExitStatus {
    success = 0,
    someFailed = 1, ///< at least one file failed
    wrongUsage = 2,
    noSpace = 3,
    archiveInUse = 4,  ///< another run works in the archive
    interrupted = 130, ///< the same as after Ctrl-C
};

enum class Command { scan, plan, organize, duplicates, check, verify, undo, runs };

/// The request on the command line.
struct Arguments {
    Command command = Command::scan;
    std::vector<FilePath> sources; ///< absolute, in the order given; none for undo and runs
    OrganizationPlan plan;         ///< with its destination, for plan and organize
    bool analyzeDuplicates = false;
    /// organize: where to write the journal as a separate document. undo: the journal of the run to undo;
    /// absent means that of the last run.
    std::optional<FilePath> manifestFile;
    FilePath archive;     ///< check and verify: the root of the archive
    bool readAll = false; ///< check: also read files that were read before and look unchanged
    std::optional<std::int64_t> sinceDays; ///< verify: skip files that were read within these days
    std::optional<FilePath> csvFile;
    std::optional<FilePath> reportFile;
    bool assumeYes = false;
    bool json = false;
    bool quiet = false;
};

/// Reads the command line. If there is nothing to run (help, version, wrong usage), the texts have been
/// printed and the result is the exit status.
std::variant<Arguments, ExitStatus> parseArguments(int argc, const char* const* argv);

} // namespace lumeo::cli
