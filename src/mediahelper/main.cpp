#include "media/BoundedFile.h"
#include "media/helper/Cage.h"
#include "media/helper/GivenFile.h"
#include "media/helper/HelperSocket.h"
#include "media/helper/MediaQuestion.h"
#include "mediahelper/OtherMovie.h"

#include <chrono>
#include <ctime>
#include <memory>

#include <unistd.h>

extern "C" {
#include <libavutil/mem.h>
}

// Tells the program what only a decoder library knows about a movie. This process can do nothing else: it
// receives open files, one at a time, and answers with numbers.

namespace {

using namespace lumeo;
using namespace std::chrono_literals;

constexpr ReadLimits limits{.bytes = 8 * 1024 * 1024, .work = 100ms, .wait = 4s};
constexpr std::chrono::milliseconds mostWork = 250ms; ///< for code of the library that ignores the limits
constexpr std::chrono::seconds workOfALife = 600s;
constexpr CageLimits cageLimits{
    .addresses = 1024 * 1024 * 1024, .memory = 96 * 1024 * 1024, .work = workOfALife};
constexpr std::size_t largestAllocation = 32 * 1024 * 1024;

MediaAnswer answerTo(const MediaQuestion& question, Descriptor descriptor) {
    MediaAnswer answer;
    if (question.container >= foreignContainerCount || !descriptor.isOpen()) {
        return answer;
    }
    GivenFile file(std::move(descriptor), question.fileSize);
    BoundedFile bounded(file, limits);
    if (const auto movie = readOtherMovie(bounded, static_cast<ForeignContainer>(question.container))) {
        const MovieVideoTrack track = movie->videoTrack.value_or(MovieVideoTrack{});
        answer = {movie->durationSeconds.value_or(0), track.naturalWidth, track.naturalHeight, 1};
    }
    return answer;
}

/// False when the program has exited.
bool answerOneQuestion(const CageWalls& walls) {
    MediaQuestion question;
    Descriptor descriptor;
    if (!receiveRecord(STDIN_FILENO, writableBytesOf(question), descriptor)) {
        return false;
    }
    if (question.container == MediaQuestion::aboutTheCage) {
        return sendRecord(STDOUT_FILENO, bytesOf(walls));
    }
    limitWork(mostWork);
    const MediaAnswer answer = answerTo(question, std::move(descriptor));
    limitWork(0ms);
    return sendRecord(STDOUT_FILENO, bytesOf(answer));
}

/// Then it exits before its limit of processor time ends it in the middle of a file.
bool isOld() {
    return std::clock() / CLOCKS_PER_SEC >= workOfALife.count() / 2;
}

} // namespace

int main() {
    av_max_alloc(largestAllocation);
    const CageWalls walls = enterCage(cageLimits);
    while (answerOneQuestion(walls) && !isOld()) {
    }
    _exit(0); // exit handlers may need more than the cage allows
}
