#include "planning/PathTemplateEngine.h"

#include "platform/LocalCalendar.h"
#include "platform/Utf8Text.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace lumeo {
namespace {

constexpr std::array<std::string_view, 12> monthNames{
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December",
};

std::string_view monthName(int month) {
    return month >= 1 && month <= 12 ? monthNames[static_cast<std::size_t>(month - 1)] : "Unknown";
}

std::string padded(int number, int width) {
    std::array<char, 16> text{};
    const int length = std::snprintf(text.data(), text.size(), "%0*d", width, number);
    return {text.data(), static_cast<std::size_t>(length)};
}

std::string cameraText(const std::optional<SharedText>& text, std::string_view otherwise) {
    // The text is clipped first. A text from a file may itself hold tokens, and replacing them must not make
    // it grow without bound.
    return PathTemplateEngine::sanitizedComponent(text ? clippedToBytes(text->view(), longestFileName)
                                                       : otherwise);
}

/// Replaces every `token` in `text`. `value` is called once, and only if the token occurs.
template<class Value>
void replaceToken(std::string& text, std::string_view token, Value value) {
    std::size_t found = text.find(token);
    if (found == std::string::npos) {
        return;
    }
    const std::string replacement(value());
    do {
        text.replace(found, token.size(), replacement);
        found = text.find(token, found + replacement.size());
    } while (found != std::string::npos);
}

/// Appends one folder level to `path`, unless its name is only white space.
void appendFolder(std::string& path, std::string_view piece) {
    std::string name(trimmingWhitespace(clippedToBytes(trimmingWhitespace(piece), longestFileName)));
    if (name.empty()) {
        return;
    }
    // A NUL would end the path there for the system.
    std::replace(name.begin(), name.end(), '\0', '_');
    // These two do not name a folder of their own, and ".." would lead out of the archive.
    if (name == "." || name == "..") {
        std::replace(name.begin(), name.end(), '.', '_');
    }
    if (!path.empty()) {
        path += '/';
    }
    path += name;
}

std::string folderPath(std::string_view text) {
    std::string path;
    path.reserve(text.size());
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find('/', start), text.size());
        appendFolder(path, text.substr(start, end - start));
        start = end + 1;
    }
    return path;
}

} // namespace

std::string PathTemplateEngine::render(std::string_view folderTemplate, Instant date, const MediaItem& item) {
    const WallTime wall = LocalCalendar::components(date);
    std::string text(folderTemplate);
    // The order is part of what a template means: an inserted value may complete a token that is replaced
    // later.
    replaceToken(text, "{YYYY}", [&] { return padded(wall.year, 4); });
    replaceToken(text, "{YY}", [&] { return padded(wall.year % 100, 2); });
    replaceToken(text, "{MM}", [&] { return padded(wall.month, 2); });
    replaceToken(text, "{DD}", [&] { return padded(wall.day, 2); });
    replaceToken(text, "{Month}", [&] { return monthName(wall.month); });
    replaceToken(text, "{MonthShort}", [&] { return monthName(wall.month).substr(0, 3); });
    replaceToken(text, "{CameraMake}", [&] { return cameraText(item.cameraMake, "Unknown Camera"); });
    replaceToken(text, "{CameraModel}", [&] { return cameraText(item.cameraModel, "Unknown Model"); });
    replaceToken(text, "{MediaType}", [&] { return userFriendlyLabel(item.mediaType); });
    return folderPath(text);
}

std::string PathTemplateEngine::renderRelativePath(const MediaItem& item, OrganizationPreset preset,
                                                   std::optional<std::string_view> customTemplate,
                                                   std::string_view unknownDateFolder) {
    if (!item.resolvedDate) {
        return std::string(unknownDateFolder);
    }
    const bool isCustom = preset == OrganizationPreset::custom && customTemplate.has_value();
    return render(isCustom ? *customTemplate : defaultTemplate(preset), *item.resolvedDate, item);
}

std::string PathTemplateEngine::sanitizedComponent(std::string_view text) {
    constexpr std::string_view forbidden = "/:\\?%*|\"<>";
    std::string cleaned(text);
    for (char& character : cleaned) {
        if (forbidden.find(character) != std::string_view::npos) {
            character = '_';
        }
    }
    const std::size_t first = cleaned.find_first_not_of(" \t");
    if (first == std::string::npos) {
        return {};
    }
    return cleaned.substr(first, cleaned.find_last_not_of(" \t") - first + 1);
}

} // namespace lumeo
