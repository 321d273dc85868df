#pragma once

#include "cli/Commands.h"

namespace lumeo::cli {

/// Tells whether every media file of the sources is in the archive.
ExitStatus check(const Arguments& arguments, const Environment& environment);

} // namespace lumeo::cli
