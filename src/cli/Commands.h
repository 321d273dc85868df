#pragma once

#include "cli/Arguments.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/Interrupt.h"
#include "transfer/RunJournals.h"

namespace lumeo::cli {

/// What every command works with.
struct Environment {
    FileSystem& fileSystem;
    const Clock& clock;
    const Interrupt& interrupt;
    const RunJournals& journals;
};

/// Runs the command that was asked for, after a look at whether its sources and destination can be used.
ExitStatus runCommand(const Arguments& arguments, const Environment& environment);

} // namespace lumeo::cli
