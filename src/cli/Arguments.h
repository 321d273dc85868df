#pragma once

#include "model/OrganizationPlan.h"
#include "platform/FilePath.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace lumeo::cli {

/// How the program ends.
enum class ExitStatus {
    success = 0,
    someFailed = 1, ///< at least one file failed
    wrongUsage = 2,
    noSpace = 3,
    archiveInUse = 4,  ///< another run works in the archive
    interrupted = 130, ///< as after Ctrl-C
};

enum class Command { scan, plan, organize, duplicates, check, verify, undo, runs };

/// What was asked for on the command line.
struct Arguments {
    Command command = Command::scan;
    std::vector<FilePath> sources; ///< absolute, in the order given; none for undo and runs
    OrganizationPlan plan;         ///< with its destination, for plan and organize
    bool analyzeDuplicates = false;
    /// organize: where the journal goes as a document of its own; undo: the journal to take back, absent for
    /// that of the last run.
    std::optional<FilePath> manifestFile;
    FilePath archive;                      ///< check and verify: its root
    bool readAll = false;                  ///< check: also what was read before and looks untouched
    std::optional<std::int64_t> sinceDays; ///< verify: spare what was read within them
    std::optional<FilePath> csvFile;
    std::optional<FilePath> reportFile;
    bool assumeYes = false;
    bool json = false;
    bool quiet = false;
};

/// Reads the command line. When there is nothing to run (help, version, wrong usage) the texts have
/// been printed and the status says how to end.
std::variant<Arguments, ExitStatus> parseArguments(int argc, const char* const* argv);

} // namespace lumeo::cli
