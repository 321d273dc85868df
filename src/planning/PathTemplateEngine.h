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
    /// Folder names joined by "/", without one at either end; empty for the root itself. Tokens that are
    /// not known stay as they are. Dates are read in the user's time zone, month names are English.
    /// Whatever the template and the camera's texts hold, each name is one that a folder can have, and
    /// the path leads nowhere but below the root.
    static std::string render(std::string_view folderTemplate, Instant date, const MediaItem& item);

    /// The folder for `item`: `unknownDateFolder` as it is when the item has no date, else its preset's
    /// template, or `customTemplate` for the custom preset, rendered.
    static std::string renderRelativePath(const MediaItem& item, OrganizationPreset preset,
                                          std::optional<std::string_view> customTemplate,
                                          std::string_view unknownDateFolder);

    /// `text` with the characters that folder names had better not hold replaced by "_", and spaces
    /// and tabs trimmed from both ends.
    static std::string sanitizedComponent(std::string_view text);
};

} // namespace lumeo
