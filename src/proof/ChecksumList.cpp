#include "proof/ChecksumList.h"

#include "platform/DocumentWriter.h"
#include "platform/LineReader.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <unordered_map>
#include <utility>

namespace lumeo {
namespace {

constexpr std::size_t digestLength = 64;

struct Escape {
    char character;
    char letter;
};

/// A line that starts with a backslash has these in its name.
constexpr std::array escapes{Escape{'\\', '\\'}, Escape{'\n', 'n'}, Escape{'\r', 'r'}};

std::string escaped(std::string_view name) {
    std::string text;
    for (const char character : name) {
        const auto* const escape = std::ranges::find(escapes, character, &Escape::character);
        if (escape == escapes.end()) {
            text += character;
        } else {
            text += {'\\', escape->letter};
        }
    }
    return text;
}

std::optional<std::string> unescaped(std::string_view text) {
    std::string name;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            name += text[i];
            continue;
        }
        const auto* const escape =
            ++i < text.size() ? std::ranges::find(escapes, text[i], &Escape::letter) : escapes.end();
        if (escape == escapes.end()) {
            return std::nullopt;
        }
        name += escape->character;
    }
    return name;
}

bool isDigest(std::string_view text) {
    return text.size() == digestLength &&
           text.find_first_not_of("0123456789abcdefABCDEF") == std::string::npos;
}

std::string lowerCased(std::string_view digits) {
    std::string text(digits);
    std::ranges::transform(text, text.begin(),
                           [](char c) { return c >= 'A' ? static_cast<char>(c | 0x20) : c; });
    return text;
}

/// A list may come from anybody, and nothing outside of the archive is looked at for it.
bool liesBelowTheRoot(const std::string& name) {
    const FilePath root("/archive");
    const FilePath path = FilePath::standardized(root.bytes() + "/" + name);
    return path != root && path.liesIn(root) && name.find('\0') == std::string::npos;
}

/// The list, open for writing at its end.
FileResult<std::unique_ptr<WritableFile>> openList(FileSystem& fileSystem, const FilePath& path) {
    auto file = fileSystem.openForAppending(path);
    const bool isMissing = !file && file.error().errnoValue == ENOENT;
    return isMissing ? fileSystem.createFile(path, FileAccess::everyone) : std::move(file);
}

FileResult<void> append(FileSystem& fileSystem, const FilePath& root, const std::string& text) {
    const FileResult<std::unique_ptr<WritableFile>> file =
        openList(fileSystem, root.appending(ChecksumList::fileName));
    if (!file) {
        return file.error();
    }
    if (FileResult<void> written = (*file)->write(std::as_bytes(std::span(text))); !written) {
        return written;
    }
    if (FileResult<void> flushed = (*file)->flush(); !flushed) {
        return flushed;
    }
    return fileSystem.flushFolder(root);
}

/// Writes the list again without the lines for which `isDropped(line, isWhole)` returns true, completely or
/// not at all. A list without any line left is removed.
template<class IsDropped>
FileResult<void> rewrite(FileSystem& fileSystem, const FilePath& path, IsDropped isDropped) {
    const FileResult<std::unique_ptr<ReadableFile>> file = fileSystem.openForReading(path);
    if (!file) {
        return file.error().errnoValue == ENOENT ? FileResult<void>() : file.error();
    }
    std::string kept;
    bool isChanged = false;
    LineReader lines(**file);
    while (const std::optional<std::string> text = lines.next()) {
        const bool isGone = isDropped(*text, lines.isWhole());
        isChanged = isChanged || isGone || !lines.isWhole();
        kept += isGone ? "" : *text + "\n";
    }
    if (lines.error()) {
        return *lines.error();
    }
    if (!isChanged) {
        return {};
    }
    return kept.empty() ? fileSystem.removeFile(path) : writeDocument(fileSystem, kept, path);
}

} // namespace

std::string ChecksumList::line(const Checksum& checksum) {
    const std::string name = escaped(checksum.name);
    return (name == checksum.name ? "" : "\\") + checksum.digest + "  " + name + "\n";
}

std::optional<Checksum> ChecksumList::parse(std::string_view line) {
    const bool isEscaped = line.starts_with('\\');
    line.remove_prefix(isEscaped ? 1 : 0);
    constexpr std::size_t nameStart = digestLength + 2; // after a blank, and another blank or an asterisk
    if (line.size() <= nameStart || !isDigest(line.substr(0, digestLength)) || line[digestLength] != ' ' ||
        (line[digestLength + 1] != ' ' && line[digestLength + 1] != '*')) {
        return std::nullopt;
    }
    const std::string_view text = line.substr(nameStart);
    std::optional<std::string> name = isEscaped ? unescaped(text) : std::string(text);
    return name ? std::optional(Checksum{*std::move(name), lowerCased(line.substr(0, digestLength))})
                : std::nullopt;
}

FileResult<ListedChecksums> ChecksumList::read(const FileSystem& fileSystem, const FilePath& root) {
    const FileResult<std::unique_ptr<ReadableFile>> file =
        fileSystem.openForReading(root.appending(fileName));
    if (!file) {
        return file.error();
    }
    ListedChecksums list;
    std::unordered_map<std::string, std::size_t> places;
    LineReader lines(**file);
    while (const std::optional<std::string> text = lines.next()) {
        list.endsInALine = lines.isWhole();
        std::optional<Checksum> checksum = parse(*text);
        if (!checksum || !liesBelowTheRoot(checksum->name)) {
            list.damagedLines += text->empty() ? 0 : 1;
            continue;
        }
        const auto [place, isNew] = places.try_emplace(checksum->name, list.checksums.size());
        if (isNew) {
            list.checksums.push_back(*std::move(checksum));
        } else {
            list.checksums[place->second] = *std::move(checksum);
        }
    }
    if (lines.error()) {
        return *lines.error();
    }
    return list;
}

FileResult<void> ChecksumList::extend(FileSystem& fileSystem, const FilePath& root,
                                      std::span<const Checksum> checksums) {
    const FileResult<ListedChecksums> listed = read(fileSystem, root);
    if (!listed && listed.error().errnoValue != ENOENT) {
        return listed.error();
    }
    if (listed && !listed->endsInALine) { // a loss of power may have cut the last line short
        const auto isCut = [](const std::string& text, bool isWhole) { return !isWhole && !parse(text); };
        if (FileResult<void> mended = rewrite(fileSystem, root.appending(fileName), isCut); !mended) {
            return mended;
        }
    }
    std::unordered_map<std::string_view, std::string_view> known;
    if (listed) {
        for (const Checksum& checksum : listed->checksums) {
            known.emplace(checksum.name, checksum.digest);
        }
    }
    std::string text;
    for (const Checksum& checksum : checksums) {
        std::string_view& digest = known[checksum.name];
        if (digest != checksum.digest) {
            digest = checksum.digest;
            text += line(checksum);
        }
    }
    return text.empty() ? FileResult<void>() : append(fileSystem, root, text);
}

FileResult<void> ChecksumList::withdraw(FileSystem& fileSystem, const FilePath& root,
                                        const std::function<bool(const Checksum&)>& isGone) {
    return rewrite(fileSystem, root.appending(fileName), [&isGone](const std::string& text, bool) {
        const std::optional<Checksum> checksum = parse(text);
        return checksum && isGone(*checksum);
    });
}

} // namespace lumeo
