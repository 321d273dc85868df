#include "media/helper/Cage.h"
#include "media/helper/GivenFile.h"
#include "media/helper/HelperSocket.h"
#include "thumbnailer/ThumbnailMaker.h"
#include "ui/thumbnails/HelperPipe.h"

#include <QCoreApplication>

#include <chrono>
#include <ctime>

#include <unistd.h>

// Makes small pictures for the program. This process can do nothing else: it receives open files, one at a
// time, and answers with pixels. A file that crashes a decoder, or makes it fill the memory, costs one
// picture. A file that takes over the process gains nothing.

namespace {

using namespace lumeo;
using namespace std::chrono_literals;

constexpr std::uint64_t mostMemory = std::uint64_t{2} * 1024 * 1024 * 1024;
constexpr std::chrono::seconds mostWork = 6s; ///< for decoders that ignore the limits
constexpr std::chrono::seconds workOfALife = 3'600s;

/// False when the program has exited.
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

/// Then it exits before its limit of processor time ends it in the middle of a file.
bool isOld() {
    return std::clock() / CLOCKS_PER_SEC >= workOfALife.count() / 2;
}

} // namespace

int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv); // Qt finds its readers through it
    ThumbnailMaker::prepare();
    enterCage({.addresses = mostMemory, .memory = mostMemory, .work = workOfALife});
    while (answerOneQuestion() && !isOld()) {
    }
    _exit(0); // exit handlers may need more than the cage allows
}
