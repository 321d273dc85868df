#pragma once

#include "platform/FileSystem.h"

#include <cerrno>
#include <utility>

namespace lumeo {

/// An open file descriptor. Its destructor closes it and leaves errno unchanged.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) noexcept : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(other.release()) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor();

    [[nodiscard]] bool isOpen() const noexcept { return number_ >= 0; }
    [[nodiscard]] int get() const noexcept { return number_; }
    int release() noexcept { return std::exchange(number_, -1); }

private:
    int number_ = -1;
};

/// Makes a system call and repeats it while signals interrupt it.
template<class Call>
auto retrying(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR) {
        result = call();
    }
    return result;
}

/// A path in the form that the *at() calls take. The system refuses path texts of PATH_MAX bytes, although
/// files may lie that deep. For a longer path, all but the end is opened here piece by piece.
class ReachedPath {
public:
    /// Keeps a pointer into `path`, which must outlive it. Sets errno when the path cannot be reached.
    explicit ReachedPath(const FilePath& path);

    [[nodiscard]] bool isReached() const noexcept { return name_ != nullptr; }
    [[nodiscard]] int folder() const noexcept;
    [[nodiscard]] const char* name() const noexcept { return name_; }

private:
    Descriptor folder_;
    const char* name_ = nullptr;
};

/// The result of `call(folder, name)` for a path of any length, or -1 with errno set.
template<class Call>
int callAt(const FilePath& path, Call call) {
    const ReachedPath reached(path);
    return reached.isReached() ? retrying([&] { return call(reached.folder(), reached.name()); }) : -1;
}

/// Opens for reading without changing the access time, where the system allows it. A scan should leave no
/// trace, and cards wear out by writes. -1 with errno set when the file cannot be opened.
int openWithoutTrace(int folder, const char* name, int flags);

/// Calls statx() once. `flags` are its AT_ flags. An empty name with AT_EMPTY_PATH asks about `folder`
/// itself. `path` is only used in the error.
FileResult<FileStatus> statusAt(int folder, const char* name, int flags, const FilePath& path);

} // namespace lumeo
