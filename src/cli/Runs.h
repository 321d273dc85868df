#pragma once

#include "cli/Commands.h"

namespace lumeo::cli {

/// Prints the latest runs on stdout, the newest first: time, identifier, destination, number of files, and
/// how each run ended. With --json it prints one object on each line, with the path of the journal.
ExitStatus listRuns(const Arguments& arguments, const Environment& environment);

} // namespace lumeo::cli
