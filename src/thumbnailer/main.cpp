#include "media/helper/Cage.h"
#include "media/helper/GivenFile.h"
#include "media/helper/HelperSocket.h"
#include "thumbnailer/ThumbnailMaker.h"
#include "ui/thumbnails/HelperPipe.h"

#include <QCoreApplication>

#include <chrono>
#include <ctime>

#include <unistd.h>

// Makes small pictures for the program, in a process that can do nothing else: it is handed open files, one
// at a time, and answers with pixels. A file that brings a decoder down, or makes it eat memory, costs one
// picture; one that takes it over gains nothing.

namespace {

using namespace lumeo;
using namespace std::chrono_literals;

constexpr std::uint64_t mostMemory = std::uint64_t{2} * 1024 * 1024 * 1024;
constexpr std::chrono::seconds mostWork = 6s; ///< where a decoder does not look at the limits
constexpr std::chrono::seconds workOfALife = 3'600s;

/// False when the program has gone.
bool answerOneQuestion() {
    ThumbnailQuestion question;
    Descriptor descriptor;
    if (!receiveRecord(STDIN_FILENO, writableBytesOf(question), descriptor)) {
        return false;
    }
    GivenFile file(std::move(descriptor), question.fileSize);
    limitWork(mostWork);
    const QImage picture = ThumbnailMaker::make(file, question.isRaw != 0, {question.width, question.height});
    limitWork(0s);
    const QByteArray answer = encodedAnswer(picture);
    return sendRecord(STDOUT_FILENO, std::as_bytes(std::span(answer)));
}

/// Before the limit of a life ends it in the middle of a file.
bool isOld() {
    return std::clock() / CLOCKS_PER_SEC >= workOfALife.count() / 2;
}

} // namespace

int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv); // Qt's readers are found through it
    ThumbnailMaker::prepare();
    enterCage({.addresses = mostMemory, .memory = mostMemory, .work = workOfALife});
    while (answerOneQuestion() && !isOld()) {
    }
    _exit(0); // what runs at an exit may ask for more than the cage allows
}
