#include "scan/ScanRoot.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace lumeo {
namespace {

/// The part of `path` below `folder`; both are real paths. Absent when `path` is not below `folder`.
std::optional<std::string_view> wayDown(const FilePath& folder, const FilePath& path) {
    std::string_view rest = path.bytes();
    const std::string_view start = folder.bytes() == "/" ? std::string_view() : folder.bytes();
    if (!rest.starts_with(start)) {
        return std::nullopt;
    }
    rest.remove_prefix(start.size());
    return rest.size() > 1 && rest.front() == '/' ? std::optional(rest.substr(1)) : std::nullopt;
}

} // namespace

std::vector<ScanRoot> scanRoots(std::span<const FilePath> paths, const Volumes& volumes) {
    std::vector<ScanRoot> roots;
    std::vector<FilePath> places;
    for (const FilePath& path : paths) {
        FilePath place = volumes.resolved(path);
        if (std::ranges::find(places, place) == places.end()) {
            roots.push_back({path, {}});
            places.push_back(std::move(place));
        }
    }
    for (std::size_t outer = 0; outer < roots.size(); ++outer) {
        for (const FilePath& place : places) {
            if (const auto down = wayDown(places[outer], place)) {
                roots[outer].otherRoots.push_back(roots[outer].path.appending(*down));
            }
        }
    }
    return roots;
}

} // namespace lumeo
