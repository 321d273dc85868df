#pragma once

#include "cli/Arguments.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/Interrupt.h"
#include "transfer/RunJournals.h"

namespace lumeo::cli {

/// What every command needs.
struct Environment {
    FileSystem& fileSystem;
    const Clock& clock;
    const Interrupt& interrupt;
    const RunJournals& journals;
};

/// Checks that the sources and the destination can be used, then runs the command.
ExitStatus runCommand(const Arguments& arguments, const Environment& environment);

} // namespace lumeo::cli
