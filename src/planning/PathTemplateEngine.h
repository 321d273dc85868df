#pragma once

#include "model/MediaItem.h"
#include "model/OrganizationPlan.h"

#include <optional>
#include <string>
#include <string_view>

namespace lumeo {

/// Turns a folder template such as "{YYYY}/{YYYY}-{MM} {Month}" into an item's folder below the archive
/// root. Any thread may call.
struct PathTemplateEngine {
    /// Folder names joined by "/", without one at either end. Empty for the root itself. Unknown tokens stay
    /// as they are. Dates are read in the user's time zone, and month names are English. Whatever the
    /// template and the camera's texts hold, each name is a valid folder name, and the path stays below the
    /// root.
    static std::string render(std::string_view folderTemplate, Instant date, const MediaItem& item);

    /// The folder for `item`. Without a date it is `unknownDateFolder`, unchanged. With a date it is the
    /// rendered template of its preset, or the rendered `customTemplate` for the custom preset.
    static std::string renderRelativePath(const MediaItem& item, OrganizationPreset preset,
                                          std::optional<std::string_view> customTemplate,
                                          std::string_view unknownDateFolder);

    /// Replaces the characters that folder names should not hold by "_", and trims spaces and tabs from both
    /// ends.
    static std::string sanitizedComponent(std::string_view text);
};

} // namespace lumeo
