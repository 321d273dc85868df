#pragma once

#include <compare>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace lumeo {

/// The location of a file or folder: bytes, not text. A name need not be UTF-8 and may hold anything
/// but "/" and NUL. Unlike std::filesystem::path it keeps no list of its components, which would cost
/// a catalogue of a million files several hundred bytes each.
///
/// Values are compared byte by byte. An empty path means "no location".
class FilePath {
public:
    FilePath() = default;
    explicit FilePath(std::string bytes);

    /// `path` made absolute against the current folder, "." and ".." and doubled slashes removed by
    /// their text alone (no link is resolved). Empty stays empty; so does a relative path stay as it is
    /// when the current folder has been removed, for the system to refuse.
    static FilePath standardized(std::string_view path);

    [[nodiscard]] const std::string& bytes() const noexcept { return bytes_; }
    [[nodiscard]] const char* c_str() const noexcept { return bytes_.c_str(); }
    [[nodiscard]] bool empty() const noexcept { return bytes_.empty(); }

    /// What follows the last slash; trailing slashes do not count. "/" for the root, empty for the
    /// empty path. The view lives as long as this path.
    [[nodiscard]] std::string_view lastComponent() const noexcept;

    /// The last component's extension without its dot, as written; see pathExtension().
    [[nodiscard]] std::string_view extension() const noexcept;

    /// The path without its last component; the root and a lone name are their own ends: parent of
    /// "/" is "/", parent of "name" is empty.
    [[nodiscard]] FilePath parent() const;

    /// This path, a slash where one is needed, and `relative`, which may hold several components.
    /// Empty `relative` gives this path.
    [[nodiscard]] FilePath appending(std::string_view relative) const;

    /// True when this path is `folder` or, by its text alone, lies below it.
    [[nodiscard]] bool liesIn(const FilePath& folder) const noexcept;

    /// What of this path follows `folder`, in which it lies; empty for the folder itself.
    [[nodiscard]] std::string relativeTo(const FilePath& folder) const;

    /// The path as text for a person: what is not UTF-8 shows as U+FFFD. Never turned back into a path.
    [[nodiscard]] std::string displayText() const;

    /// The percent-encoded "file://" form, which every byte survives: unreserved characters and "/"
    /// stay, all other bytes become %XX.
    [[nodiscard]] std::string fileUrl() const;

    /// The path that a file URL names; absent when `url` is not one ("file:///…" or
    /// "file://localhost/…"), is badly encoded or holds %00.
    static std::optional<FilePath> fromFileUrl(std::string_view url);

    friend bool operator==(const FilePath&, const FilePath&) = default;
    // NOLINTNEXTLINE(modernize-use-nullptr): no pointer, but the zero that an ordering is compared with
    friend std::strong_ordering operator<=>(const FilePath&, const FilePath&) = default;

private:
    std::string bytes_;
};

/// The extension of a file name, without the dot: "gz" of "a.tar.gz"; empty for "README", ".hidden"
/// (a leading dot begins no extension) and "name." (nothing follows the dot).
std::string_view pathExtension(std::string_view fileName) noexcept;

/// The name without its extension and that extension's dot; the whole name when it has none.
std::string_view deletingPathExtension(std::string_view fileName) noexcept;

/// `bytes` as UTF-8 text, each ill-formed sequence replaced by U+FFFD.
std::string replacingInvalidUtf8(std::string_view bytes);

/// A file's name or path as one line of text for a person: what is not UTF-8 shows as U+FFFD, control
/// characters as \n, \t or \xHH, so that no name can pass for a line of its own.
std::string printable(std::string_view bytes);

/// True when `bytes` is well-formed UTF-8.
bool isValidUtf8(std::string_view bytes) noexcept;

} // namespace lumeo

template<>
struct std::hash<lumeo::FilePath> {
    std::size_t operator()(const lumeo::FilePath& path) const noexcept {
        return std::hash<std::string>{}(path.bytes());
    }
};
