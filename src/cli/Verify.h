#pragma once

#include "cli/Commands.h"
#include "proof/ReadingProgress.h"

namespace lumeo::cli {

/// The current result of a check or a verification, for the status line.
std::string readingFacts(const ReadingProgress& progress);

/// Compares an archive with the list of digests in its root.
ExitStatus verify(const Arguments& arguments, const Environment& environment);

} // namespace lumeo::cli
