#include "platform/PosixFileSystem.h"
#include "thumbnailer/ThumbnailMaker.h"
#include "ui/thumbnails/HelperPipe.h"

#include <QCoreApplication>

#include <cerrno>
#include <climits>
#include <csignal>
#include <fstream>
#include <string>

#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

// Makes small pictures for the program, in a process of its own: a file that brings a decoder down, or
// makes it eat memory, costs one picture and not the copying of an archive. Started and ended by the
// program; reads questions from its input and writes answers to its output.

namespace {

using namespace lumeo;

[[maybe_unused]] constexpr rlim_t mostMemory = rlim_t{2} * 1024 * 1024 * 1024;
constexpr int leastUrgent = 10;

void limit(int resource, rlim_t most) {
    const rlimit bounds{most, most};
    setrlimit(static_cast<__rlimit_resource_t>(resource), &bounds);
}

/// From here on no file can be written, and memory is the first to be taken back.
void giveUpRights() {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    std::ofstream("/proc/self/oom_score_adj") << 1000;
    limit(RLIMIT_FSIZE, 0);
    limit(RLIMIT_CORE, 0);
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    limit(RLIMIT_AS, mostMemory); // the sanitizers lay claim to terabytes of addresses
#endif
    setpriority(PRIO_PROCESS, 0, leastUrgent);
}

bool readAll(void* target, std::size_t count) {
    auto* bytes = static_cast<char*>(target);
    while (count > 0) {
        const ssize_t read = ::read(STDIN_FILENO, bytes, count);
        if (read == 0 || (read < 0 && errno != EINTR)) {
            return false;
        }
        bytes += std::max<ssize_t>(read, 0);
        count -= static_cast<std::size_t>(std::max<ssize_t>(read, 0));
    }
    return true;
}

bool writeAll(const QByteArray& bytes) {
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t written =
            ::write(STDOUT_FILENO, bytes.constData() + done, static_cast<std::size_t>(bytes.size() - done));
        if (written < 0 && errno != EINTR) {
            return false;
        }
        done += std::max<ssize_t>(written, 0);
    }
    return true;
}

/// False when the program has gone.
bool answerOneQuestion(const FileSystem& fileSystem) {
    constexpr std::uint32_t longestPath = 1024 * 1024;
    ThumbnailQuestion question;
    if (!readAll(&question, sizeof question) || question.pathLength > longestPath) {
        return false;
    }
    std::string path(question.pathLength, '\0');
    if (!readAll(path.data(), path.size())) {
        return false;
    }
    const QSize pixels(question.width, question.height);
    return writeAll(encodedAnswer(ThumbnailMaker::make(fileSystem, FilePath(std::move(path)), pixels)));
}

} // namespace

int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv); // Qt's readers are found through it
    giveUpRights();
    const PosixFileSystem fileSystem;
    while (answerOneQuestion(fileSystem)) {
    }
    return 0;
}
