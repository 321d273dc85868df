#include "planning/DestinationPlanner.h"

#include "hashing/StreamingHashService.h"
#include "planning/CollisionResolver.h"
#include "planning/PathTemplateEngine.h"

#include <unordered_set>

namespace lumeo {
namespace {

constexpr std::size_t itemsBetweenReports = 64;

/// Gives out the places of one planning pass.
class Pass {
public:
    Pass(const OrganizationPlan& plan, const FileSystem& fileSystem, const std::stop_token& stop)
        : plan_(plan), fileSystem_(fileSystem), stop_(stop), resolver_(fileSystem) {}

    void place(MediaItem& item) {
        const FilePath desired = folderOf(item).appending(item.fileName());
        if (!item.sha256Hash && resolver_.meetsFileOfSize(desired, item.fileSize)) {
            Result<std::string, HashError> digest = StreamingHashService::computeSHA256(
                fileSystem_, item.sourceURL, StreamingHashService::chunkSize,
                [this] { return stop_.stop_requested(); });
            if (digest) {
                item.sha256Hash = *std::move(digest);
            }
        }
        item.plannedDestinationURL =
            resolver_.resolveUniqueDestination(desired, item.fileSize, item.sha256Hash, stop_);
    }

private:
    FilePath folderOf(const MediaItem& item) {
        const std::string folder = PathTemplateEngine::renderRelativePath(
            item, plan_.preset, plan_.customTemplate, DestinationPlanner::unknownDateFolder);
        FilePath root = *plan_.destinationURL;
        if (plan_.duplicatePolicy == DuplicatePolicy::copyToDuplicatesFolder && item.exactDuplicateGroupID &&
            !groupsMet_.insert(*item.exactDuplicateGroupID).second) {
            root = root.appending(DestinationPlanner::duplicatesFolder);
        }
        return root.appending(folder);
    }

    const OrganizationPlan& plan_;
    const FileSystem& fileSystem_;
    const std::stop_token& stop_;
    CollisionResolver resolver_;
    std::unordered_set<Uuid> groupsMet_;
};

} // namespace

void DestinationPlanner::plan(std::span<MediaItem> items, const OrganizationPlan& plan,
                              const FileSystem& fileSystem, const std::stop_token& stop,
                              const ProgressCallback& onProgress) {
    if (!plan.destinationURL) {
        return;
    }
    Pass pass(plan, fileSystem, stop);
    std::size_t plannedCount = 0;
    for (MediaItem& item : items) {
        if (stop.stop_requested()) {
            return;
        }
        pass.place(item);
        if (++plannedCount % itemsBetweenReports == 0 && onProgress) {
            onProgress(plannedCount);
        }
    }
}

} // namespace lumeo
