#include "cli/Commands.h"
#include "platform/PosixFileSystem.h"

#include <QCoreApplication>

#include <cstdlib>
#include <iostream>

int main(int argc, char** argv) {
    using namespace lumeo;
    std::ios::sync_with_stdio(false);
    // A reader that exits early, as `head` does, must not end a run.
    turnWriteSignalsIntoErrors();

    const auto parsed = cli::parseArguments(argc, argv);
    if (const auto* status = std::get_if<cli::ExitStatus>(&parsed)) {
        return static_cast<int>(*status);
    }
    // The application object adopts the user's locale and warns when it is not UTF-8. Numbers and messages
    // must be the same for every script.
    setenv("LC_ALL", "C.UTF-8", 1);
    PosixFileSystem fileSystem;
    const SystemClock clock;
    const Interrupt interrupt;
    const QCoreApplication application(argc, argv); // the jobs report through its event loop
    const RunJournals journals(fileSystem, RunJournals::userFolder());
    const cli::ExitStatus status =
        cli::runCommand(std::get<cli::Arguments>(parsed), {fileSystem, clock, interrupt, journals});
    return static_cast<int>(status);
}
