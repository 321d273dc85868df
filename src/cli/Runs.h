#pragma once

#include "cli/Commands.h"

namespace lumeo::cli {

/// The latest runs on stdout, the newest first: when, which, where to, how many files and how it ended. With
/// --json an object a line, with the path of the journal.
ExitStatus listRuns(const Arguments& arguments, const Environment& environment);

} // namespace lumeo::cli
