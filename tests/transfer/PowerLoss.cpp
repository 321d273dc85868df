#include "PowerLoss.h"

#include "TransferWorld.h"

#include <algorithm>

namespace lumeo {

void PowerLoss::note(const DiskCall& call) {
    if (call.operation == "createFile") {
        files_.insert(call.path);
        unflushedNames_.insert(call.path);
    } else if (call.operation == "createFolders") {
        for (FilePath folder = call.path; !isThere(folder); folder = folder.parent()) {
            unflushedNames_.insert(folder);
        }
    } else if (call.operation == "write") {
        unflushedContents_.insert(call.path);
    } else if (call.operation == "flush") {
        unflushedContents_.erase(call.path);
    } else if (call.operation == "flushFolder") {
        std::erase_if(unflushedNames_, [&](const FilePath& path) { return path.parent() == call.path; });
    } else if (call.operation == "renameWithoutReplacing") {
        files_.erase(call.path);
        files_.insert(call.newPath);
        unflushedNames_.erase(call.path);
        unflushedNames_.insert(call.newPath);
        if (unflushedContents_.erase(call.path) != 0) {
            unflushedContents_.insert(call.newPath);
        }
    } else if (call.operation == "removeFile") {
        // Without this record nobody would know where the file came from.
        const auto isJournal = [](const FilePath& path) { return path.extension() == "journal"; };
        if (!isKeptElsewhere(call.path) || std::ranges::any_of(unflushedContents_, isJournal)) {
            losses_.push_back(call.path);
        }
        files_.erase(call.path);
    }
}

bool PowerLoss::isKeptElsewhere(const FilePath& path) const {
    return std::ranges::any_of(files_, [&](const FilePath& file) {
        return file != path && isDurable(file) && contentOf(file) == contentOf(path);
    });
}

bool PowerLoss::isDurable(const FilePath& path) const {
    if (unflushedContents_.contains(path)) {
        return false;
    }
    for (FilePath name = path; name != name.parent(); name = name.parent()) {
        if (unflushedNames_.contains(name)) {
            return false;
        }
    }
    return true;
}

} // namespace lumeo
