#include "transfer/FolderFlusher.h"

#include <string_view>

namespace lumeo {

bool UnflushedFolder::endangers(const FilePath& path) const {
    const std::string_view prefix = folder.bytes();
    const std::string_view whole = path.bytes();
    return whole.starts_with(prefix) &&
           (prefix.ends_with('/') || whole.substr(prefix.size()).starts_with('/'));
}

FileResult<void> FolderFlusher::createFolders(const FilePath& folder) {
    const FileResult<std::vector<FilePath>> created = fileSystem_.createFolders(folder);
    if (!created) {
        return created.error();
    }
    for (const FilePath& one : *created) {
        note(one.parent());
    }
    return {};
}

void FolderFlusher::note(const FilePath& folder) {
    pending_.try_emplace(folder);
}

FileResult<void> FolderFlusher::flush(const FilePath& folder, std::optional<FileError>& refusal) {
    if (!refusal) {
        const FileResult<void> flushed = fileSystem_.flushFolder(folder);
        if (flushed) {
            return {};
        }
        refusal = flushed.error();
    }
    return *refusal;
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
    for (auto& [folder, refusal] : pending_) {
        if (const FileResult<void> flushed = flush(folder, refusal); !flushed) {
            refused.push_back({folder, flushed.error()});
        }
    }
    std::erase_if(pending_, [](const auto& entry) { return !entry.second; });
    return refused;
}

} // namespace lumeo
