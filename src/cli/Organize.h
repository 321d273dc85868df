#pragma once

#include "cli/Session.h"

namespace lumeo::cli {

/// What a run has come to, for the status line.
std::string runFacts(const OperationProgress& progress);

/// The run itself: asks before a move, says so when there is no room, transfers with a status line, says what
/// was done and writes the journal where it was asked for.
ExitStatus organize(const Arguments& arguments, const Environment& environment, Session& session);

} // namespace lumeo::cli
