#pragma once

#include "cli/Session.h"

namespace lumeo::cli {

/// The current result of a run, for the status line.
std::string runFacts(const OperationProgress& progress);

/// Does the run. Asks before a move, reports when there is not enough space, transfers with a status line,
/// prints what was done, and writes the journal to the requested file.
ExitStatus organize(const Arguments& arguments, const Environment& environment, Session& session);

} // namespace lumeo::cli
