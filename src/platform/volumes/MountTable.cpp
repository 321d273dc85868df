#include "platform/volumes/MountTable.h"

#include "platform/PosixHandle.h"
#include "platform/volumes/SystemFiles.h"

#include <algorithm>
#include <charconv>
#include <ranges>

#include <fcntl.h>
#include <sys/stat.h>

namespace lumeo {
namespace {

bool isOctal(char character) {
    return character >= '0' && character <= '7';
}

/// Spaces, tabs, line feeds and backslashes are written as a backslash and three octal digits.
std::string unescaped(std::string_view field) {
    std::string result;
    for (std::size_t i = 0; i < field.size(); ++i) {
        const std::string_view digits = field.substr(i + 1, 3);
        if (field[i] == '\\' && digits.size() == 3 && std::ranges::all_of(digits, isOctal)) {
            unsigned value = 0;
            std::from_chars(digits.data(), digits.data() + digits.size(), value, 8);
            result += static_cast<char>(value);
            i += digits.size();
        } else {
            result += field[i];
        }
    }
    return result;
}

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find(separator, start), text.size());
        parts.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return parts;
}

/// "id parent major:minor root point options [optional fields] - type source superOptions"
std::optional<Mount> parseRow(std::string_view row) {
    constexpr std::size_t fieldsBeforeOptional = 6;
    const std::vector<std::string_view> fields = split(row, ' ');
    const auto dash = std::ranges::find(fields, "-");
    if (dash - fields.begin() < static_cast<std::ptrdiff_t>(fieldsBeforeOptional) ||
        fields.end() - dash < 3) {
        return std::nullopt;
    }
    Mount mount;
    std::from_chars(fields[0].data(), fields[0].data() + fields[0].size(), mount.id);
    mount.device = fields[2];
    mount.point = FilePath(unescaped(fields[4]));
    mount.fileSystemType = dash[1];
    mount.source = unescaped(dash[2]);
    return mount;
}

} // namespace

std::vector<Mount> parseMountTable(std::string_view text) {
    std::vector<Mount> table;
    for (const std::string_view row : split(text, '\n')) {
        if (std::optional<Mount> mount = parseRow(row)) {
            table.push_back(*std::move(mount));
        }
    }
    return table;
}

std::optional<Mount> mountHolding(const FilePath& path, std::optional<std::uint64_t> mountId,
                                  const std::vector<Mount>& table) {
    const Mount* deepest = nullptr;
    for (const Mount& mount : table) {
        if (mount.id == mountId) {
            return mount;
        }
        if (path.liesIn(mount.point) &&
            (deepest == nullptr || mount.point.bytes().size() >= deepest->point.bytes().size())) {
            deepest = &mount;
        }
    }
    return deepest != nullptr ? std::optional(*deepest) : std::nullopt;
}

std::optional<Mount> mountUnder(const FilePath& path, const FilePath& systemRoot) {
    struct statx told {};
    const int result = callAt(
        path, [&told](int folder, const char* name) { return statx(folder, name, 0, STATX_MNT_ID, &told); });
    if (result != 0) {
        return std::nullopt;
    }
    const bool isNumbered = (told.stx_mask & STATX_MNT_ID) != 0;
    const std::string table = contentOfSystemFile(systemRoot.appending("proc/self/mountinfo"));
    return mountHolding(path, isNumbered ? std::optional<std::uint64_t>(told.stx_mnt_id) : std::nullopt,
                        parseMountTable(table));
}

} // namespace lumeo
