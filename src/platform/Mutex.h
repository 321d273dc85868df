#pragma once

#include <mutex>

/// Clang checks two rules at compile time. Data marked LUMEO_GUARDED_BY(mutex) is only used while the mutex
/// is held. A function marked LUMEO_REQUIRES(mutex) is only called while it is held. Other compilers ignore
/// the marks.
#if defined(__clang__)
#    define LUMEO_THREAD_ANNOTATION(annotation) __attribute__((annotation))
#else
#    define LUMEO_THREAD_ANNOTATION(annotation)
#endif
#define LUMEO_GUARDED_BY(mutex) LUMEO_THREAD_ANNOTATION(guarded_by(mutex))
#define LUMEO_REQUIRES(mutex) LUMEO_THREAD_ANNOTATION(requires_capability(mutex))

namespace lumeo {

/// A std::mutex that Clang's check knows. A std::condition_variable_any can wait on it.
class LUMEO_THREAD_ANNOTATION(capability("mutex")) Mutex {
public:
    void lock() LUMEO_THREAD_ANNOTATION(acquire_capability()) { mutex_.lock(); }
    void unlock() LUMEO_THREAD_ANNOTATION(release_capability()) { mutex_.unlock(); }

private:
    std::mutex mutex_;
};

/// Holds a mutex as long as it exists.
class LUMEO_THREAD_ANNOTATION(scoped_lockable) MutexGuard {
public:
    explicit MutexGuard(Mutex& mutex) LUMEO_THREAD_ANNOTATION(acquire_capability(mutex)) : mutex_(mutex) {
        mutex_.lock();
    }
    ~MutexGuard() LUMEO_THREAD_ANNOTATION(release_capability()) { mutex_.unlock(); }
    MutexGuard(const MutexGuard&) = delete;
    MutexGuard& operator=(const MutexGuard&) = delete;

private:
    Mutex& mutex_;
};

} // namespace lumeo
