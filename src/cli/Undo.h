#pragma once

#include "cli/Commands.h"

namespace lumeo::cli {

/// Takes back the run whose journal was named, or else the last one: says what it will do, asks, and tells
/// what was left alone.
ExitStatus undo(const Arguments& arguments, const Environment& environment);

} // namespace lumeo::cli
