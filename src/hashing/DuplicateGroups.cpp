#include "hashing/DuplicateGroups.h"

#include "platform/FileSystem.h"

#include <algorithm>
#include <unordered_map>

namespace lumeo {

std::vector<DuplicateGroup> duplicateGroups(std::span<const MediaItem> items, const FileSystem& fileSystem) {
    std::vector<DuplicateGroup> groups;
    std::vector<std::vector<FileIdentity>> filesOf; // of each group
    std::unordered_map<Uuid, std::size_t> groupOf;
    for (std::size_t position = 0; position < items.size(); ++position) {
        const MediaItem& item = items[position];
        if (!item.exactDuplicateGroupID) {
            continue;
        }
        const auto [known, isNew] = groupOf.try_emplace(*item.exactDuplicateGroupID, groups.size());
        if (isNew) {
            groups.push_back({*item.exactDuplicateGroupID, {}, 0});
            filesOf.emplace_back();
        }
        DuplicateGroup& group = groups[known->second];
        std::vector<FileIdentity>& files = filesOf[known->second];
        if (const auto status = fileSystem.targetStatus(item.sourceURL)) {
            if (std::ranges::find(files, status->identity) != files.end()) {
                continue;
            }
            files.push_back(status->identity);
        }
        group.reclaimableBytes += group.members.empty() ? 0 : item.fileSize;
        group.members.push_back(position);
    }
    std::erase_if(groups, [](const DuplicateGroup& group) { return group.members.size() < 2; });
    return groups;
}

} // namespace lumeo
