#include "media/helper/Cage.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <fstream>

#include <linux/landlock.h>
#include <sched.h>
#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

namespace lumeo {
namespace {

void limit(int resource, rlim_t most) {
    const rlimit bounds{most, most};
    setrlimit(static_cast<__rlimit_resource_t>(resource), &bounds);
}

void setLimits(const CageLimits& limits) {
    constexpr rlim_t mostOpen = 32;
    constexpr int leastUrgent = 10;
    std::ofstream("/proc/self/oom_score_adj") << 1000; // the kernel kills it first when memory runs out
    setpriority(PRIO_PROCESS, 0, leastUrgent);
    limit(RLIMIT_CORE, 0);
    limit(RLIMIT_FSIZE, 0);
    limit(RLIMIT_NOFILE, mostOpen);
    limit(RLIMIT_CPU, static_cast<rlim_t>(limits.work.count()));
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    limit(RLIMIT_AS, limits.addresses); // the sanitizers reserve terabytes of addresses
    limit(RLIMIT_DATA, limits.memory);
#endif
}

/// The newest form of the kernel's structure. Older kernels read only the first fields.
struct LandlockRules {
    std::uint64_t files = 0;
    std::uint64_t network = 0;
    std::uint64_t scopes = 0;
};

/// Allows nothing. What is already open stays open.
std::uint8_t denyFileSystem() {
    struct Version {
        std::size_t size;
        unsigned fileRights;
    };
    // What each version of the interface can deny: kernel 5.13, then 5.19, 6.2, 6.7, 6.10, 6.12.
    constexpr std::array versions{
        Version{sizeof(std::uint64_t), 13},     Version{sizeof(std::uint64_t), 14},
        Version{sizeof(std::uint64_t), 15},     Version{2 * sizeof(std::uint64_t), 15},
        Version{2 * sizeof(std::uint64_t), 16}, Version{3 * sizeof(std::uint64_t), 16}};
    const long newest =
        syscall(SYS_landlock_create_ruleset, nullptr, std::size_t{0}, LANDLOCK_CREATE_RULESET_VERSION);
    if (newest < 1) {
        return 0;
    }
    const auto index = std::min(static_cast<std::size_t>(newest), versions.size()) - 1;
    LandlockRules rules;
    rules.files = (std::uint64_t{1} << versions.at(index).fileRights) - 1;
    rules.network = 3; // to bind and to connect
    rules.scopes = 3;  // sockets and signals of other processes
    const long set = syscall(SYS_landlock_create_ruleset, &rules, versions.at(index).size, 0U);
    const bool isIn = set >= 0 && syscall(SYS_landlock_restrict_self, static_cast<int>(set), 0U) == 0;
    if (set >= 0) {
        close(static_cast<int>(set));
    }
    return isIn ? static_cast<std::uint8_t>(newest) : std::uint8_t{0};
}

/// System calls that affect only the process itself and what it holds open.
constexpr std::array harmlessCalls{
    SCMP_SYS(read),
    SCMP_SYS(pread64),
    SCMP_SYS(readv),
    SCMP_SYS(recvmsg),
    SCMP_SYS(close),
    SCMP_SYS(munmap),
    SCMP_SYS(mremap),
    SCMP_SYS(brk),
    SCMP_SYS(madvise),
    SCMP_SYS(futex),
    SCMP_SYS(set_robust_list),
    SCMP_SYS(rseq),
    SCMP_SYS(sched_yield),
    SCMP_SYS(sched_getaffinity),
    SCMP_SYS(getpid),
    SCMP_SYS(gettid),
    SCMP_SYS(clock_gettime),
    SCMP_SYS(clock_getres),
    SCMP_SYS(clock_nanosleep),
    SCMP_SYS(nanosleep),
    SCMP_SYS(gettimeofday),
    SCMP_SYS(time),
    SCMP_SYS(times),
    SCMP_SYS(getrusage),
    SCMP_SYS(setitimer),
    SCMP_SYS(exit),
    SCMP_SYS(exit_group),
    SCMP_SYS(rt_sigaction),
    SCMP_SYS(rt_sigprocmask),
    SCMP_SYS(rt_sigreturn),
    SCMP_SYS(sigaltstack),
    SCMP_SYS(restart_syscall),
    SCMP_SYS(getrandom),
    SCMP_SYS(membarrier),
};

using Filter = scmp_filter_ctx;

int allow(Filter filter, int call) {
    return seccomp_rule_add(filter, SCMP_ACT_ALLOW, call, 0);
}

int allowWhere(Filter filter, int call, const scmp_arg_cmp& condition) {
    return seccomp_rule_add_array(filter, SCMP_ACT_ALLOW, call, 1, &condition);
}

bool allowCalls(Filter filter) {
    int failures = 0;
    for (const int call : harmlessCalls) {
        failures += allow(filter, call) != 0 ? 1 : 0;
    }
    const auto where = [&](int call, const scmp_arg_cmp& condition) {
        failures += allowWhere(filter, call, condition) != 0 ? 1 : 0;
    };
    // Memory, but not for code.
    where(SCMP_SYS(mmap), SCMP_A2(SCMP_CMP_MASKED_EQ, PROT_EXEC, 0));
    where(SCMP_SYS(mprotect), SCMP_A2(SCMP_CMP_MASKED_EQ, PROT_EXEC, 0));
    // Answers on the standard output.
    where(SCMP_SYS(write), SCMP_A0(SCMP_CMP_EQ, STDOUT_FILENO));
    where(SCMP_SYS(sendmsg), SCMP_A0(SCMP_CMP_EQ, STDOUT_FILENO));
    // Threads but no processes. clone3 hides its flags in memory, where a filter cannot see them. When it is
    // reported as missing, the C library uses clone.
    where(SCMP_SYS(clone), SCMP_A0(SCMP_CMP_MASKED_EQ, CLONE_THREAD, CLONE_THREAD));
    failures += seccomp_rule_add(filter, SCMP_ACT_ERRNO(ENOSYS), SCMP_SYS(clone3), 0) != 0 ? 1 : 0;
    where(SCMP_SYS(prctl), SCMP_A0(SCMP_CMP_EQ, PR_SET_NAME));
    where(SCMP_SYS(prlimit64), SCMP_A2(SCMP_CMP_EQ, 0)); // reads the limits only
    where(SCMP_SYS(tgkill), SCMP_A0(SCMP_CMP_EQ, static_cast<scmp_datum_t>(getpid()))); // to itself only
    return failures == 0;
}

bool filterSystemCalls() {
    // A refused call fails, so that a library can go on without it.
    const Filter filter = seccomp_init(SCMP_ACT_ERRNO(EPERM));
    if (filter == nullptr) {
        return false;
    }
    const bool isIn = allowCalls(filter) && seccomp_load(filter) == 0;
    seccomp_release(filter);
    return isIn;
}

} // namespace

CageWalls enterCage(const CageLimits& limits) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    prctl(PR_SET_DUMPABLE, 0);
    setLimits(limits);
    CageWalls walls;
    walls.noNewPrivileges = prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 ? 1 : 0;
    walls.fileSystemRules = denyFileSystem();
    walls.systemCallFilter = filterSystemCalls() ? 1 : 0;
    return walls;
}

void limitWork(std::chrono::microseconds work) {
    constexpr std::int64_t perSecond = 1'000'000;
    const itimerval once{{}, {work.count() / perSecond, work.count() % perSecond}};
    setitimer(ITIMER_PROF, &once, nullptr); // its signal ends the process
}

} // namespace lumeo
