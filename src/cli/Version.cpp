#include "cli/Version.h"

#include "media/helper/MediaHelper.h"

namespace lumeo::cli {
namespace {

std::string cageText() {
    const std::optional<CageWalls> walls = MediaHelper().walls();
    if (!walls) {
        return "the helper cannot be started";
    }
    const auto yesOrNo = [](bool stands) { return std::string(stands ? "yes" : "no"); };
    return "no new privileges: " + yesOrNo(walls->noNewPrivileges != 0) +
           ", system call filter: " + yesOrNo(walls->systemCallFilter != 0) + ", Landlock: " +
           (walls->fileSystemRules != 0 ? "version " + std::to_string(walls->fileSystemRules) : "no");
}

} // namespace

std::string versionText(bool isVerbose) {
    return isVerbose ? LUMEO_VERSION "\nCage of the helpers: " + cageText() : LUMEO_VERSION;
}

} // namespace lumeo::cli
