#pragma once

#include "cli/Commands.h"

namespace lumeo::cli {

/// Undoes the run whose journal was named, or else the last run. Says what it will do, asks, and tells which
/// files it left alone.
ExitStatus undo(const Arguments& arguments, const Environment& environment);

} // namespace lumeo::cli
