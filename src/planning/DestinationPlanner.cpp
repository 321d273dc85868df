#include "planning/DestinationPlanner.h"

#include "planning/CollisionResolver.h"
#include "planning/PathTemplateEngine.h"

namespace lumeo {

void DestinationPlanner::plan(std::span<MediaItem> items, const OrganizationPlan& plan,
                              const FileSystem& fileSystem, const std::stop_token& stop) {
    if (!plan.destinationURL) {
        return;
    }
    CollisionResolver resolver(fileSystem);
    for (MediaItem& item : items) {
        const std::string folder =
            PathTemplateEngine::renderRelativePath(item, plan.preset, plan.customTemplate, unknownDateFolder);
        const FilePath desired = plan.destinationURL->appending(folder).appending(item.fileName());
        item.plannedDestinationURL =
            resolver.resolveUniqueDestination(desired, item.fileSize, item.sha256Hash, stop);
    }
}

} // namespace lumeo
