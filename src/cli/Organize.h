#pragma once

#include "cli/Catalogue.h"

namespace lumeo::cli {

/// The run itself: asks before a move, refuses without room, transfers with a status line, says what
/// was done and writes the journal where it was asked for.
ExitStatus organize(const Arguments& arguments, const Environment& environment, const Catalogue& catalogue);

} // namespace lumeo::cli
