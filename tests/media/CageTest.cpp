#include "media/helper/Cage.h"

#include "support/TempFolder.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <ctime>
#include <map>
#include <string>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/ptrace.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace lumeo {
namespace {

constexpr CageLimits limits{.addresses = std::uint64_t{1} << 32U,
                            .memory = std::uint64_t{1} << 30U,
                            .work = std::chrono::seconds(60)};

/// Runs `inside` in a process of its own, inside the cage. Returns what it writes to its standard output.
template<class Inside>
std::string fromInside(Inside inside) {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe(ends.data()), 0);
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], STDOUT_FILENO);
        enterCage(limits);
        const std::string told = inside();
        _exit(write(STDOUT_FILENO, told.data(), told.size()) < 0 ? 1 : 0);
    }
    close(ends[1]);
    std::string told;
    std::array<char, 4096> part{};
    for (ssize_t count = 0; (count = read(ends[0], part.data(), part.size())) > 0;) {
        told.append(part.data(), static_cast<std::size_t>(count));
    }
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0) << told;
    return told;
}

TEST(Cage, LeavesNothingButReadingWhatIsOpenMemoryThreadsAndAnswers) {
    const TempFolder folder;
    const std::string file = folder.write("file", "content").bytes();
    const std::string other = (folder / "other").bytes();
    const int open = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    const int writable = ::open(file.c_str(), O_RDWR | O_CLOEXEC);
    const pid_t parent = getpid();
    ASSERT_GE(open, 0);

    const std::string told = fromInside([&] {
        std::string allowed;
        const auto attempt = [&allowed](const char* name, long result) {
            if (result >= 0) {
                allowed += std::string(name) + ' ';
            }
        };
        attempt("open", ::open(file.c_str(), O_RDONLY));
        attempt("openFolder", ::open("/", O_RDONLY | O_DIRECTORY));
        attempt("reopen", ::open(("/proc/self/fd/" + std::to_string(open)).c_str(), O_RDWR));
        attempt("create", ::open(other.c_str(), O_WRONLY | O_CREAT, 0600));
        attempt("truncate", truncate(file.c_str(), 0));
        attempt("ftruncate", ftruncate(writable, 0));
        attempt("write", write(writable, "x", 1));
        attempt("pwrite", pwrite(writable, "x", 1, 0));
        attempt("unlink", unlink(file.c_str()));
        attempt("rename", rename(file.c_str(), other.c_str()));
        attempt("link", link(file.c_str(), other.c_str()));
        attempt("mkdir", mkdir(other.c_str(), 0700));
        attempt("chmod", fchmod(open, 0777));
        attempt("socket", socket(AF_INET, SOCK_STREAM, 0));
        attempt("unixSocket", socket(AF_UNIX, SOCK_STREAM, 0));
        attempt("fork", syscall(SYS_fork));
        attempt("clone", syscall(SYS_clone, 17, 0, 0, 0, 0));
        attempt("exec", execl("/bin/true", "true", nullptr));
        attempt("kill", kill(parent, 0));
        attempt("signalItsParent", syscall(SYS_tgkill, parent, parent, 0));
        attempt("ptrace", ptrace(PTRACE_TRACEME, 0, nullptr, nullptr));
        attempt("dup", dup(open));
        attempt("code",
                mmap(nullptr, 4096, PROT_READ | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0) == MAP_FAILED
                    ? -1
                    : 0);
        std::array<char, 8> content{};
        attempt("read", pread(open, content.data(), 7, 0) == 7 && std::strcmp(content.data(), "content") == 0
                            ? 0
                            : -1);
        attempt("memory", std::string(10'000'000, 'x').back() == 'x' ? 0 : -1);
        return allowed;
    });
    EXPECT_EQ(told, "read memory ");
    close(open);
    close(writable);
}

TEST(Cage, EndsWorkThatTakesTooLong) {
    const pid_t child = fork();
    if (child == 0) {
        enterCage(limits);
        limitWork(std::chrono::milliseconds(20));
        while (std::clock() >= 0) { // without end
        }
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), SIGPROF);
}

TEST(Cage, TellsWhichWallsStand) {
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], STDOUT_FILENO);
        const CageWalls walls = enterCage(limits);
        _exit(write(STDOUT_FILENO, &walls, sizeof walls) == sizeof walls ? 0 : 1);
    }
    CageWalls walls;
    EXPECT_EQ(read(ends[0], &walls, sizeof walls), static_cast<ssize_t>(sizeof walls));
    waitpid(child, nullptr, 0);
    close(ends[0]);
    close(ends[1]);
    EXPECT_EQ(walls.noNewPrivileges, 1);
    EXPECT_EQ(walls.systemCallFilter, 1);
    const long landlock = syscall(SYS_landlock_create_ruleset, nullptr, 0, 1U);
    EXPECT_EQ(walls.fileSystemRules, std::max(landlock, 0L)) << "what the kernel has";
}

} // namespace
} // namespace lumeo
