#include "proof/FileWalk.h"

#include "scan/MediaScanner.h"

namespace lumeo {
namespace {

template<class Function, class... Arguments>
void tell(const Function& function, const Arguments&... arguments) {
    if (function) {
        function(arguments...);
    }
}

void visit(const DirectoryEntry& entry, DirectoryEnumerator& walk, const FileVisitor& visitor) {
    if (!entry.status) {
        tell(visitor.onProblem, entry.status.error());
    } else if (MediaScanner::isIgnoredName(entry.path.lastComponent())) {
        walk.skipDescendants();
    } else if (entry.status->kind == FileKind::folder) {
        tell(visitor.onFolder, entry.path, *entry.status);
    } else if (entry.status->kind == FileKind::regular) {
        tell(visitor.onFile, entry.path, *entry.status);
    } else {
        tell(visitor.onOther, entry.path);
    }
}

} // namespace

void walkFiles(const FileSystem& fileSystem, const FilePath& root, const FileVisitor& visitor,
               const std::stop_token& stop) {
    const FileResult<FileStatus> status = fileSystem.targetStatus(root);
    if (!status) {
        tell(visitor.onProblem, status.error());
        return;
    }
    if (status->kind == FileKind::regular) {
        tell(visitor.onFile, root, *status);
        return;
    }
    tell(visitor.onFolder, root, *status);
    const auto walk =
        fileSystem.enumerate(root, [&](const FileError& error) { tell(visitor.onProblem, error); });
    if (!walk) {
        tell(visitor.onProblem, walk.error());
        return;
    }
    while (!stop.stop_requested()) {
        const std::optional<DirectoryEntry> entry = (*walk)->next();
        if (!entry) {
            return;
        }
        visit(*entry, **walk, visitor);
    }
}

} // namespace lumeo
