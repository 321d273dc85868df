#include "hashing/DuplicateGroups.h"

#include <unordered_map>

namespace lumeo {

std::vector<DuplicateGroup> duplicateGroups(std::span<const MediaItem> items) {
    std::vector<DuplicateGroup> groups;
    std::unordered_map<Uuid, std::size_t> groupOf;
    for (std::size_t position = 0; position < items.size(); ++position) {
        const MediaItem& item = items[position];
        if (!item.exactDuplicateGroupID) {
            continue;
        }
        const auto [known, isNew] = groupOf.try_emplace(*item.exactDuplicateGroupID, groups.size());
        if (isNew) {
            groups.push_back({*item.exactDuplicateGroupID, {position}, 0});
        } else {
            DuplicateGroup& group = groups[known->second];
            group.members.push_back(position);
            group.reclaimableBytes += item.fileSize;
        }
    }
    std::erase_if(groups, [](const DuplicateGroup& group) { return group.members.size() < 2; });
    return groups;
}

} // namespace lumeo
