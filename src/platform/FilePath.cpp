#include "platform/FilePath.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <vector>

#include <unicode/utf8.h>
#include <unistd.h>

namespace lumeo {
namespace {

/// Empty when the folder has been removed.
std::string currentFolder() {
    std::string buffer(4096, '\0');
    while (getcwd(buffer.data(), buffer.size()) == nullptr) {
        if (errno != ERANGE) {
            return {};
        }
        buffer.resize(buffer.size() * 2);
    }
    buffer.resize(buffer.find('\0'));
    return buffer;
}

/// Calls `each` with every well-formed run of `bytes` and with every ill-formed sequence between them.
template<class Each>
void walkUtf8(std::string_view bytes, Each each) {
    const auto* data = reinterpret_cast<const std::uint8_t*>(bytes.data());
    const auto length = static_cast<std::int64_t>(bytes.size());
    std::int64_t position = 0;
    while (position < length) {
        const std::int64_t start = position;
        UChar32 character = 0;
        U8_NEXT(data, position, length, character);
        each(bytes.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(position - start)),
             character >= 0);
    }
}

} // namespace

FilePath::FilePath(std::string bytes) : bytes_(std::move(bytes)) {
    bytes_.shrink_to_fit();
}

FilePath FilePath::standardized(std::string_view path) {
    if (path.empty()) {
        return {};
    }
    std::string absolute;
    if (path.front() != '/') {
        absolute = currentFolder();
        if (absolute.empty()) {
            return FilePath(std::string(path));
        }
        absolute += '/';
    }
    absolute += path;

    std::vector<std::string_view> components;
    const std::string_view text = absolute;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('/', start), text.size());
        const std::string_view component = text.substr(start, end - start);
        if (component == "..") {
            if (!components.empty()) {
                components.pop_back();
            }
        } else if (!component.empty() && component != ".") {
            components.push_back(component);
        }
        start = end + 1;
    }
    std::string result;
    for (const std::string_view component : components) {
        result += '/';
        result += component;
    }
    return FilePath(result.empty() ? "/" : std::move(result));
}

std::string_view FilePath::lastComponent() const noexcept {
    std::string_view rest = bytes_;
    while (rest.size() > 1 && rest.back() == '/') {
        rest.remove_suffix(1);
    }
    if (rest == "/") {
        return rest;
    }
    const std::size_t slash = rest.rfind('/');
    return slash == std::string_view::npos ? rest : rest.substr(slash + 1);
}

std::string_view FilePath::extension() const noexcept {
    return pathExtension(lastComponent());
}

FilePath FilePath::parent() const {
    const std::string_view last = lastComponent();
    if (last.empty() || last == "/") {
        return *this;
    }
    auto end = static_cast<std::size_t>(last.data() - bytes_.data());
    while (end > 1 && bytes_[end - 1] == '/') {
        --end;
    }
    return FilePath(bytes_.substr(0, end));
}

FilePath FilePath::appending(std::string_view relative) const {
    if (relative.empty()) {
        return *this;
    }
    std::string joined;
    joined.reserve(bytes_.size() + 1 + relative.size());
    joined = bytes_;
    if (!joined.empty() && joined.back() != '/') {
        joined += '/';
    }
    joined += relative;
    return FilePath(std::move(joined));
}

bool FilePath::liesIn(const FilePath& folder) const noexcept {
    const std::string& above = folder.bytes_;
    return bytes_.starts_with(above) &&
           (bytes_.size() == above.size() || above.ends_with('/') || bytes_[above.size()] == '/');
}

std::string FilePath::relativeTo(const FilePath& folder) const {
    const std::size_t length = folder.bytes_.size() + (folder.bytes_.ends_with('/') ? 0 : 1);
    return bytes_.substr(std::min(bytes_.size(), length));
}

std::string FilePath::displayText() const {
    return replacingInvalidUtf8(bytes_);
}

std::string_view pathExtension(std::string_view fileName) noexcept {
    const std::size_t dot = fileName.rfind('.');
    if (dot == std::string_view::npos || dot == 0) {
        return {};
    }
    return fileName.substr(dot + 1);
}

std::string_view deletingPathExtension(std::string_view fileName) noexcept {
    const std::string_view extension = pathExtension(fileName);
    return extension.empty() ? fileName : fileName.substr(0, fileName.size() - extension.size() - 1);
}

std::string replacingInvalidUtf8(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    walkUtf8(bytes, [&](std::string_view sequence, bool wellFormed) {
        text += wellFormed ? sequence : std::string_view("\uFFFD");
    });
    return text;
}

std::string printable(std::string_view bytes) {
    std::string text;
    for (const char character : replacingInvalidUtf8(bytes)) {
        const auto byte = static_cast<unsigned char>(character);
        if (character == '\n') {
            text += "\\n";
        } else if (character == '\t') {
            text += "\\t";
        } else if (byte < 0x20U || byte == 0x7FU) {
            constexpr std::string_view digits = "0123456789ABCDEF";
            text += "\\x";
            text += digits[byte >> 4U];
            text += digits[byte & 0x0FU];
        } else {
            text += character;
        }
    }
    return text;
}

bool isValidUtf8(std::string_view bytes) noexcept {
    bool valid = true;
    walkUtf8(bytes, [&](std::string_view, bool wellFormed) { valid = valid && wellFormed; });
    return valid;
}

} // namespace lumeo
