#include "cli/Commands.h"
#include "platform/PosixFileSystem.h"

#include <QCoreApplication>

#include <cstdlib>
#include <iostream>

int main(int argc, char** argv) {
    using namespace lumeo;
    std::ios::sync_with_stdio(false);
    // A reader that goes away, as `head` does, must not end a run.
    turnWriteSignalsIntoErrors();

    const auto parsed = cli::parseArguments(argc, argv);
    if (const auto* status = std::get_if<cli::ExitStatus>(&parsed)) {
        return static_cast<int>(*status);
    }
    // An application object adopts the user's locale and complains of one that is not UTF-8. Numbers and
    // messages are to be the same for every script.
    setenv("LC_ALL", "C.UTF-8", 1);
    PosixFileSystem fileSystem;
    const SystemClock clock;
    const Interrupt interrupt;
    const QCoreApplication application(argc, argv); // whose event loop the jobs come back through
    const RunJournals journals(fileSystem, RunJournals::userFolder());
    const cli::ExitStatus status =
        cli::runCommand(std::get<cli::Arguments>(parsed), {fileSystem, clock, interrupt, journals});
    return static_cast<int>(status);
}
