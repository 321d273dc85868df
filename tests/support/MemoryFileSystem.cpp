#include "support/MemoryFileSystem.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <functional>

namespace lumeo {
namespace {

class MemoryFile final : public ReadableFile {
public:
    MemoryFile(std::string content, FileStatus status, std::size_t& bytesRead)
        : content_(std::move(content)), status_(status), bytesRead_(bytesRead) {}

    FileResult<std::size_t> read(std::span<std::byte> buffer) override {
        FileResult<std::size_t> count = readAt(position_, buffer);
        position_ += static_cast<std::int64_t>(*count);
        return count;
    }
    FileResult<std::size_t> readAt(std::int64_t offset, std::span<std::byte> buffer) override {
        const auto start = std::min(static_cast<std::size_t>(offset), content_.size());
        const std::size_t count = std::min(buffer.size(), content_.size() - start);
        std::memcpy(buffer.data(), content_.data() + start, count);
        bytesRead_ += count;
        return count;
    }
    FileResult<FileStatus> status() override { return status_; }

private:
    std::string content_;
    FileStatus status_;
    std::size_t& bytesRead_;
    std::int64_t position_ = 0;
};

} // namespace

void MemoryFileSystem::addFile(const FilePath& path, std::string_view content) {
    addFolder(path.parent());
    const auto known = find(path); // in any case
    entries_[known != entries_.end() ? known->first : path] = {FileKind::regular, std::string(content)};
}

void MemoryFileSystem::addFolder(const FilePath& path) {
    for (FilePath folder = path; folder.bytes() != "/"; folder = folder.parent()) {
        entries_[folder] = {FileKind::folder, {}};
    }
}

void MemoryFileSystem::addLink(const FilePath& path, const FilePath& target) {
    addFolder(path.parent());
    entries_[path] = {FileKind::symbolicLink, target.bytes()};
}

MemoryFileSystem::Entries::const_iterator MemoryFileSystem::find(const FilePath& path) const {
    if (!traits.ignoresCase && !traits.ignoresComposition) {
        return entries_.find(path);
    }
    const std::string wanted = comparableName(path.bytes(), traits);
    return std::ranges::find_if(
        entries_, [&](const auto& entry) { return comparableName(entry.first.bytes(), traits) == wanted; });
}

FileResult<FileStatus> MemoryFileSystem::status(const FilePath& path) const {
    ++examined_[path];
    if (const auto refused = refusedExamining_.find(path.parent()); refused != refusedExamining_.end()) {
        return FileError{FileAction::examine, path, refused->second};
    }
    const auto found = find(path);
    if (found == entries_.end()) {
        return FileError{FileAction::examine, path, ENOENT};
    }
    FileStatus status;
    status.kind = found->second.kind;
    status.size = static_cast<std::int64_t>(found->second.content.size());
    status.identity = {1, std::hash<std::string>()(path.bytes())};
    return status;
}

FileResult<FileStatus> MemoryFileSystem::targetStatus(const FilePath& path) const {
    const auto found = find(path);
    const bool isLink = found != entries_.end() && found->second.kind == FileKind::symbolicLink;
    return status(isLink ? FilePath(found->second.content) : path);
}

FileResult<std::unique_ptr<ReadableFile>> MemoryFileSystem::openForReading(const FilePath& path) const {
    if (onOpen) {
        onOpen(path);
    }
    opened_.push_back(path);
    auto found = find(path);
    const FilePath& name = found != entries_.end() ? found->first : path;
    if (const auto refused = refusedOpening_.find(name); refused != refusedOpening_.end()) {
        return FileError{FileAction::open, path, refused->second};
    }
    if (found != entries_.end() && found->second.kind == FileKind::symbolicLink) {
        found = find(FilePath(found->second.content));
    }
    if (found == entries_.end() || found->second.kind != FileKind::regular) {
        return FileError{FileAction::open, path, found == entries_.end() ? ENOENT : EISDIR};
    }
    FileStatus status;
    status.kind = FileKind::regular;
    status.size = static_cast<std::int64_t>(found->second.content.size());
    return std::unique_ptr<ReadableFile>(
        std::make_unique<MemoryFile>(found->second.content, status, bytesRead_));
}

} // namespace lumeo
