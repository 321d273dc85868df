#include "cli/Duplicates.h"

#include "cli/Terminal.h"
#include "hashing/DuplicateGroups.h"
#include "model/Json.h"
#include "platform/TextFormat.h"

#include <iostream>

namespace lumeo::cli {
namespace {

std::int64_t total(const std::vector<DuplicateGroup>& groups) {
    std::int64_t bytes = 0;
    for (const DuplicateGroup& group : groups) {
        bytes += group.reclaimableBytes;
    }
    return bytes;
}

void printGroupsAsJson(const std::vector<MediaItem>& items, const std::vector<DuplicateGroup>& groups) {
    Json coded = Json::array();
    for (const DuplicateGroup& group : groups) {
        Json files = Json::array();
        for (const std::size_t member : group.members) {
            files.push_back(items[member].sourceURL.fileUrl());
        }
        coded.push_back({{"id", group.id.text()},
                         {"size", items[group.members.front()].fileSize},
                         {"reclaimableBytes", group.reclaimableBytes},
                         {"files", std::move(files)}});
    }
    std::cout << Json{{"groups", std::move(coded)}, {"reclaimableBytes", total(groups)}}.dump() << '\n';
}

} // namespace

void printDuplicates(const Arguments& arguments, const std::vector<MediaItem>& items,
                     const FileSystem& fileSystem) {
    const std::vector<DuplicateGroup> groups = duplicateGroups(items, fileSystem);
    if (arguments.json) {
        printGroupsAsJson(items, groups);
        return;
    }
    if (arguments.quiet) {
        return;
    }
    for (const DuplicateGroup& group : groups) {
        const MediaItem& first = items[group.members.front()];
        std::cout << TextFormat::number(static_cast<std::int64_t>(group.members.size())) << " files of "
                  << TextFormat::byteCount(first.fileSize) << " each\n";
        for (const std::size_t member : group.members) {
            std::cout << "    " << printable(items[member].sourceURL.bytes()) << '\n';
        }
    }
    std::cout << TextFormat::number(static_cast<std::int64_t>(groups.size()))
              << " groups of identical files; keeping one of each would save "
              << TextFormat::byteCount(total(groups)) << ".\n";
}

} // namespace lumeo::cli
