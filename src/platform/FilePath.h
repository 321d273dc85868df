#pragma once

#include <compare>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace lumeo {

/// The location of a file or folder, as bytes and not as text. A name need not be UTF-8 and may hold any byte
/// except "/" and NUL. Unlike std::filesystem::path it keeps no list of its components, which would cost a
/// catalogue of a million files several hundred bytes for each.
///
/// Values are compared byte by byte. An empty path means "no location".
class FilePath {
public:
    FilePath() = default;
    explicit FilePath(std::string bytes);

    /// `path` made absolute against the current folder. ".", ".." and doubled slashes are removed by their
    /// text alone, without resolving links. An empty path stays empty. A relative path stays unchanged when
    /// the current folder has been removed; the system will then refuse it.
    static FilePath standardized(std::string_view path);

    [[nodiscard]] const std::string& bytes() const noexcept { return bytes_; }
    [[nodiscard]] const char* c_str() const noexcept { return bytes_.c_str(); }
    [[nodiscard]] bool empty() const noexcept { return bytes_.empty(); }

    /// The part after the last slash, ignoring trailing slashes. "/" for the root, empty for the empty path.
    /// The view lives as long as this path.
    [[nodiscard]] std::string_view lastComponent() const noexcept;

    /// The last component's extension without its dot, as written; see pathExtension().
    [[nodiscard]] std::string_view extension() const noexcept;

    /// The path without its last component. The parent of "/" is "/", and the parent of "name" is empty.
    [[nodiscard]] FilePath parent() const;

    /// This path, a slash if necessary, and `relative`, which may have several components. An empty
    /// `relative` gives this path.
    [[nodiscard]] FilePath appending(std::string_view relative) const;

    /// True when this path is `folder` or, by its text alone, is below it.
    [[nodiscard]] bool liesIn(const FilePath& folder) const noexcept;

    /// The part of this path after `folder`, which must contain it. Empty for the folder itself.
    [[nodiscard]] std::string relativeTo(const FilePath& folder) const;

    /// The path as text for a person. Bytes that are not UTF-8 show as U+FFFD. The text must never become a
    /// path again.
    [[nodiscard]] std::string displayText() const;

    /// The percent-encoded "file://" form, which keeps every byte. Unreserved characters and "/" stay, and
    /// all other bytes become %XX.
    [[nodiscard]] std::string fileUrl() const;

    /// The path in a file URL. Absent when `url` is not a file URL ("file:///…" or "file://localhost/…"), is
    /// badly encoded or contains %00.
    static std::optional<FilePath> fromFileUrl(std::string_view url);

    friend bool operator==(const FilePath&, const FilePath&) = default;
    // NOLINTNEXTLINE(modernize-use-nullptr): no pointer, but the zero that an ordering is compared with
    friend std::strong_ordering operator<=>(const FilePath&, const FilePath&) = default;

private:
    std::string bytes_;
};

/// The extension of a file name, without the dot: "gz" for "a.tar.gz". Empty for "README", for ".hidden",
/// because a leading dot does not start an extension, and for "name.", because nothing follows the dot.
std::string_view pathExtension(std::string_view fileName) noexcept;

/// The name without its extension and the dot before it. The whole name when it has no extension.
std::string_view deletingPathExtension(std::string_view fileName) noexcept;

/// `bytes` as UTF-8 text. U+FFFD replaces each ill-formed sequence.
std::string replacingInvalidUtf8(std::string_view bytes);

/// A file's name or path as one line of text for a person. Bytes that are not UTF-8 show as U+FFFD. Control
/// characters show as \n, \t or \xHH, so that a name cannot look like a separate line.
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
