#include "cli/Duplicates.h"

#include "cli/Terminal.h"
#include "hashing/DuplicateDetector.h"
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

void printGroupsAsJson(const Catalogue& catalogue, const std::vector<DuplicateGroup>& groups) {
    Json coded = Json::array();
    for (const DuplicateGroup& group : groups) {
        Json files = Json::array();
        for (const std::size_t member : group.members) {
            files.push_back(catalogue.items[member].sourceURL.fileUrl());
        }
        coded.push_back({{"id", group.id.text()},
                         {"size", catalogue.items[group.members.front()].fileSize},
                         {"reclaimableBytes", group.reclaimableBytes},
                         {"files", std::move(files)}});
    }
    std::cout << Json{{"groups", std::move(coded)}, {"reclaimableBytes", total(groups)}}.dump() << '\n';
}

} // namespace

void analyzeDuplicates(const Arguments& arguments, const Environment& environment, Catalogue& catalogue) {
    StatusLine status(environment.clock, arguments.quiet);
    status.show("Comparing files of equal size", "");
    catalogue.items = DuplicateDetector(environment.fileSystem)
                          .detectDuplicates(std::move(catalogue.items), environment.interrupt.token());
}

void printDuplicates(const Arguments& arguments, const Catalogue& catalogue) {
    const std::vector<DuplicateGroup> groups = duplicateGroups(catalogue.items);
    if (arguments.json) {
        printGroupsAsJson(catalogue, groups);
        return;
    }
    if (arguments.quiet) {
        return;
    }
    for (const DuplicateGroup& group : groups) {
        const MediaItem& first = catalogue.items[group.members.front()];
        std::cout << TextFormat::number(static_cast<std::int64_t>(group.members.size())) << " files of "
                  << TextFormat::byteCount(first.fileSize) << " each\n";
        for (const std::size_t member : group.members) {
            std::cout << "    " << printable(catalogue.items[member].sourceURL.bytes()) << '\n';
        }
    }
    std::cout << TextFormat::number(static_cast<std::int64_t>(groups.size()))
              << " groups of identical files; keeping one of each would save "
              << TextFormat::byteCount(total(groups)) << ".\n";
}

} // namespace lumeo::cli
