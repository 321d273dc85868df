#include "planning/DestinationPlanner.h"

#include "hashing/StreamingHashService.h"
#include "planning/CollisionResolver.h"
#include "planning/PathTemplateEngine.h"
#include "platform/TextFormat.h"

#include <algorithm>
#include <unordered_set>
#include <vector>

namespace lumeo {
namespace {

constexpr std::size_t itemsBetweenReports = 64;

/// Gives out the destinations of one planning pass.
class Pass {
public:
    Pass(const OrganizationPlan& plan, const FileSystem& fileSystem, const DiskTraits& disk,
         const std::stop_token& stop)
        : plan_(plan), fileSystem_(fileSystem), disk_(disk), stop_(stop), resolver_(fileSystem, disk) {}

    void place(MediaItem& item) {
        warnIfTooLarge(item);
        const FilePath desired = folderOf(item).appending(fittedName(item.fileName(), disk_));
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
        return root.appending(fittedFolder(folder));
    }

    /// Each name of the folder in a form that the disk accepts.
    [[nodiscard]] std::string fittedFolder(std::string_view folder) const {
        std::string fitted;
        for (std::size_t start = 0; start <= folder.size();) {
            const std::size_t end = std::min(folder.find('/', start), folder.size());
            fitted.append(start > 0 ? 1 : 0, '/');
            fitted += fittedName(folder.substr(start, end - start), disk_);
            start = end + 1;
        }
        return fitted;
    }

    void warnIfTooLarge(MediaItem& item) const {
        std::erase_if(item.scanWarnings, [](const std::string& warning) {
            return warning.starts_with(DestinationPlanner::tooLarge);
        });
        if (disk_.largestFile && item.fileSize > *disk_.largestFile) {
            std::string& warning = item.scanWarnings.emplace_back(DestinationPlanner::tooLarge);
            warning.append(", which takes files up to ").append(TextFormat::byteCount(*disk_.largestFile));
        }
    }

    const OrganizationPlan& plan_;
    const FileSystem& fileSystem_;
    const DiskTraits& disk_;
    const std::stop_token& stop_;
    CollisionResolver resolver_;
    std::unordered_set<Uuid> groupsMet_;
};

} // namespace

void DestinationPlanner::plan(std::span<MediaItem> items, const OrganizationPlan& plan,
                              const FileSystem& fileSystem, const std::stop_token& stop,
                              const ProgressCallback& onProgress) {
    if (plan.destinationURL) {
        DestinationPlanner::plan(items, plan, fileSystem, fileSystem.diskTraits(*plan.destinationURL), stop,
                                 onProgress);
    }
}

void DestinationPlanner::plan(std::span<MediaItem> items, const OrganizationPlan& plan,
                              const FileSystem& fileSystem, const DiskTraits& disk,
                              const std::stop_token& stop, const ProgressCallback& onProgress) {
    if (!plan.destinationURL) {
        return;
    }
    Pass pass(plan, fileSystem, disk, stop);
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
