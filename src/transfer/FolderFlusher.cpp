#include "transfer/FolderFlusher.h"

#include <cerrno>
#include <string_view>
#include <utility>

namespace lumeo {

bool UnflushedFolder::endangers(const FilePath& path) const {
    const std::string_view prefix = folder.bytes();
    const std::string_view whole = path.bytes();
    return whole.starts_with(prefix) &&
           (prefix.ends_with('/') || whole.substr(prefix.size()).starts_with('/'));
}

FileResult<std::vector<FilePath>> FolderFlusher::createFolders(const FilePath& folder) {
    FileResult<std::vector<FilePath>> created = fileSystem_.createFolders(folder);
    if (!created) {
        return created;
    }
    for (const FilePath& one : *created) {
        note(one.parent());
    }
    if (const FileResult<void> noted = noteWayTo(folder); !noted) {
        return noted.error();
    }
    return created;
}

void FolderFlusher::removeFolders(std::vector<FilePath> created) {
    for (; !created.empty() && fileSystem_.removeFolder(created.back()); created.pop_back()) {
        pending_.erase(created.back());
        waysNoted_.erase(created.back());
    }
}

FileResult<void> FolderFlusher::noteWayTo(const FilePath& folder) {
    if (waysNoted_.contains(folder)) {
        return {};
    }
    const FileResult<FileStatus> status = fileSystem_.targetStatus(folder);
    const FilePath above = folder.parent();
    const FileResult<FileStatus> statusAbove = fileSystem_.targetStatus(above);
    if (!status || !statusAbove) {
        return status ? statusAbove.error() : status.error();
    }
    if (above != folder && statusAbove->identity.device == status->identity.device) {
        pending_.try_emplace(above);
        if (FileResult<void> noted = noteWayTo(above); !noted) {
            return noted;
        }
    }
    waysNoted_.insert(folder);
    return {};
}

void FolderFlusher::note(const FilePath& folder) {
    pending_[folder].isOurs = true;
}

FileResult<void> FolderFlusher::flush(const FilePath& folder, Pending& pending) {
    if (!pending.refusal) {
        const FileResult<void> flushed = fileSystem_.flushFolder(folder);
        // The user may lack access to a folder high above the archive.
        if (flushed || (!pending.isOurs && flushed.error().errnoValue == EACCES)) {
            return {};
        }
        pending.refusal = flushed.error();
    }
    return *pending.refusal;
}

FileResult<void> FolderFlusher::flushPathTo(const FilePath& folder) {
    for (FilePath current = folder;; current = current.parent()) {
        if (const auto found = pending_.find(current); found != pending_.end()) {
            if (FileResult<void> flushed = flush(current, found->second); !flushed) {
                return flushed;
            }
            pending_.erase(found);
        }
        if (current == current.parent()) {
            return {};
        }
    }
}

std::vector<UnflushedFolder> FolderFlusher::flushAll() {
    std::vector<UnflushedFolder> refused;
    for (auto& [folder, pending] : pending_) {
        if (const FileResult<void> flushed = flush(folder, pending); !flushed) {
            refused.push_back({folder, flushed.error()});
        }
    }
    std::erase_if(pending_, [](const auto& entry) { return !entry.second.refusal; });
    return refused;
}

} // namespace lumeo
