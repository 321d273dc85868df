#include "cli/Commands.h"
#include "platform/PosixFileSystem.h"

#include <iostream>

int main(int argc, char** argv) {
    using namespace lumeo;
    std::ios::sync_with_stdio(false);

    const auto parsed = cli::parseArguments(argc, argv);
    if (const auto* status = std::get_if<cli::ExitStatus>(&parsed)) {
        return static_cast<int>(*status);
    }
    PosixFileSystem fileSystem;
    const SystemClock clock;
    const cli::Interrupt interrupt;
    const cli::ExitStatus status =
        cli::runCommand(std::get<cli::Arguments>(parsed), {fileSystem, clock, interrupt});
    return static_cast<int>(status);
}
