#include "platform/PosixDirectoryEnumerator.h"

#include <algorithm>

#include <fcntl.h>

namespace lumeo {
namespace {

/// Deeper than nearly every photo library, and far below the number of files that a process may have open.
constexpr std::size_t openFoldersLimit = 32;

/// Opens a folder only to reach its entries, and only if it is the expected folder.
Descriptor reopen(int from, const char* name, const FileIdentity& expected) {
    Descriptor place(retrying([&] { return openat(from, name, O_PATH | O_DIRECTORY | O_CLOEXEC); }));
    const FileResult<FileStatus> status = statusAt(place.get(), "", AT_EMPTY_PATH, {});
    return status && status->identity == expected ? std::move(place) : Descriptor();
}

} // namespace

PosixDirectoryEnumerator::PosixDirectoryEnumerator(std::function<void(const FileError&)> onError)
    : onError_(std::move(onError)) {}

FileResult<std::unique_ptr<DirectoryEnumerator>>
PosixDirectoryEnumerator::start(const FilePath& folder, std::function<void(const FileError&)> onError) {
    std::unique_ptr<PosixDirectoryEnumerator> walk(new PosixDirectoryEnumerator(std::move(onError)));
    Descriptor descriptor(
        callAt(folder, [](int from, const char* name) { return openWithoutTrace(from, name, O_DIRECTORY); }));
    if (FileResult<void> entered = walk->enter(folder, std::move(descriptor)); !entered) {
        return entered.error();
    }
    return std::unique_ptr<DirectoryEnumerator>(std::move(walk));
}

std::optional<DirectoryEntry> PosixDirectoryEnumerator::next() {
    enterFolderGivenLast();
    while (!levels_.empty()) {
        Level& level = levels_.back();
        const std::optional<std::string> name = nextName(level);
        if (!name) {
            leaveInnermost();
            continue;
        }
        FilePath path = level.folder.appending(*name);
        // What the system already knows from listing the folder is enough. This saves asking a server again.
        FileResult<FileStatus> status =
            statusAt(level.descriptor(), name->c_str(), AT_SYMLINK_NOFOLLOW | AT_STATX_DONT_SYNC, path);
        if (status && status->kind == FileKind::folder) {
            folderGivenLast_ = path;
        }
        return DirectoryEntry{std::move(path), std::move(status)};
    }
    return std::nullopt;
}

FileResult<void> PosixDirectoryEnumerator::enter(FilePath folder, Descriptor descriptor) {
    Stream stream(descriptor.isOpen() ? fdopendir(descriptor.get()) : nullptr);
    if (!stream) {
        return FileError{FileAction::list, std::move(folder), errno};
    }
    descriptor.release();
    if (levels_.size() >= openFoldersLimit) {
        layAside(levels_[levels_.size() - openFoldersLimit]);
    }
    levels_.push_back({std::move(folder), std::move(stream), {}, {}, {}});
    return {};
}

void PosixDirectoryEnumerator::enterFolderGivenLast() {
    if (!folderGivenLast_) {
        return;
    }
    FilePath folder = std::move(*folderGivenLast_);
    folderGivenLast_.reset();
    // The name is the end of the path, so the path's NUL also ends the name.
    const char* const name = folder.lastComponent().data();
    // A link may have replaced the folder in the meantime.
    Descriptor descriptor(openWithoutTrace(levels_.back().descriptor(), name, O_DIRECTORY | O_NOFOLLOW));
    if (const FileResult<void> entered = enter(std::move(folder), std::move(descriptor)); !entered) {
        report(entered.error().path, entered.error().errnoValue);
    }
}

void PosixDirectoryEnumerator::leaveInnermost() {
    const Level left = std::move(levels_.back());
    levels_.pop_back();
    if (levels_.empty() || levels_.back().descriptor() >= 0) {
        return;
    }
    // Opening ".." from below costs the same at any depth. The path is used only when the folder below was
    // moved.
    Level& level = levels_.back();
    level.place = reopen(left.descriptor(), "..", level.identity);
    if (level.place.isOpen() || level.waitingNames.empty()) {
        return;
    }
    if (const ReachedPath reached(level.folder); reached.isReached()) {
        level.place = reopen(reached.folder(), reached.name(), level.identity);
    }
    if (!level.place.isOpen()) {
        level.waitingNames.clear();
        report(level.folder, ENOENT);
    }
}

void PosixDirectoryEnumerator::layAside(Level& level) {
    if (level.stream) {
        if (const auto status = statusAt(level.descriptor(), "", AT_EMPTY_PATH, level.folder); status) {
            level.identity = status->identity;
        }
        while (std::optional<std::string> name = nextStreamName(level)) {
            level.waitingNames.push_back(std::move(*name));
        }
        std::reverse(level.waitingNames.begin(), level.waitingNames.end());
        level.stream.reset();
    }
    level.place = {};
}

std::optional<std::string> PosixDirectoryEnumerator::nextName(Level& level) {
    if (level.stream) {
        return nextStreamName(level);
    }
    if (level.waitingNames.empty()) {
        return std::nullopt;
    }
    std::string name = std::move(level.waitingNames.back());
    level.waitingNames.pop_back();
    return name;
}

std::optional<std::string> PosixDirectoryEnumerator::nextStreamName(Level& level) {
    for (;;) {
        errno = 0;
        const dirent* const entry = readdir(level.stream.get());
        if (entry == nullptr) {
            if (errno != 0) {
                report(level.folder, errno);
            }
            return std::nullopt;
        }
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") {
            return std::string(name);
        }
    }
}

void PosixDirectoryEnumerator::report(const FilePath& folder, int errnoValue) const {
    if (onError_) {
        onError_({FileAction::list, folder, errnoValue});
    }
}

} // namespace lumeo
