#include "support/ForeignFileSystem.h"

#include <algorithm>
#include <cerrno>

namespace lumeo {

bool ForeignFileSystem::liesOnDisk(const FilePath& path) const {
    return path == root_ || path.bytes().starts_with(root_.bytes() + "/");
}

FilePath ForeignFileSystem::actual(const FilePath& path) const {
    const auto known = names_.find(comparableName(path.bytes(), traits_));
    return liesOnDisk(path) && known != names_.end() ? known->second : path;
}

bool ForeignFileSystem::refuses(const FilePath& path) const {
    const std::string_view name = path.lastComponent();
    return liesOnDisk(path) && path != root_ && fittedName(name, traits_) != name;
}

void ForeignFileSystem::note(const FilePath& path) {
    if (liesOnDisk(path)) {
        names_.emplace(comparableName(path.bytes(), traits_), path);
    }
}

FileResult<std::unique_ptr<WritableFile>> ForeignFileSystem::createFile(const FilePath& path,
                                                                        FileAccess access) {
    if (refuses(path)) {
        return FileError{FileAction::create, path, ENOENT};
    }
    auto file = target_.createFile(actual(path), access);
    if (file) {
        note(path);
    }
    return file;
}

FileResult<std::vector<FilePath>> ForeignFileSystem::createFolders(const FilePath& folder) {
    if (refuses(folder)) {
        return FileError{FileAction::createFolder, folder, ENOENT};
    }
    if (liesOnDisk(folder) && folder != root_) {
        if (const auto above = createFolders(folder.parent()); !above) {
            return above.error();
        }
    }
    auto created = target_.createFolders(actual(folder));
    note(folder);
    return created;
}

FileResult<void> ForeignFileSystem::renameWithoutReplacing(const FilePath& from, const FilePath& to) {
    if (refuses(to)) {
        return FileError{FileAction::rename, from, ENOENT};
    }
    FileResult<void> renamed = target_.renameWithoutReplacing(actual(from), actual(to));
    if (renamed) {
        names_.erase(comparableName(from.bytes(), traits_));
        note(to);
    }
    return renamed;
}

FileResult<void> ForeignFileSystem::removeFile(const FilePath& path) {
    FileResult<void> removed = target_.removeFile(actual(path));
    if (removed) {
        names_.erase(comparableName(path.bytes(), traits_));
    }
    return removed;
}

} // namespace lumeo
