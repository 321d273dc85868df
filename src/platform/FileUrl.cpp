#include "platform/FilePath.h"

namespace lumeo {
namespace {

constexpr std::string_view scheme = "file://";

bool standsForItself(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9') ||
           std::string_view("-._~/").find(byte) != std::string_view::npos;
}

int hexValue(char digit) {
    if (digit >= '0' && digit <= '9') {
        return digit - '0';
    }
    if (digit >= 'a' && digit <= 'f') {
        return digit - 'a' + 10;
    }
    if (digit >= 'A' && digit <= 'F') {
        return digit - 'A' + 10;
    }
    return -1;
}

} // namespace

std::string FilePath::fileUrl() const {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string url(scheme);
    for (const char byte : bytes_) {
        if (standsForItself(byte)) {
            url += byte;
        } else {
            const auto value = static_cast<unsigned char>(byte);
            url += '%';
            url += digits[value >> 4U];
            url += digits[value & 0x0FU];
        }
    }
    return url;
}

std::optional<FilePath> FilePath::fromFileUrl(std::string_view url) {
    if (!url.starts_with(scheme)) {
        return std::nullopt;
    }
    url.remove_prefix(scheme.size());
    constexpr std::string_view localHost = "localhost";
    if (url.starts_with(localHost)) {
        url.remove_prefix(localHost.size());
    }
    if (!url.starts_with('/')) {
        return std::nullopt;
    }
    std::string bytes;
    for (std::size_t i = 0; i < url.size(); ++i) {
        char byte = url[i];
        if (byte == '%') {
            if (url.size() - i < 3) {
                return std::nullopt;
            }
            const int high = hexValue(url[i + 1]);
            const int low = hexValue(url[i + 2]);
            if (high < 0 || low < 0) {
                return std::nullopt;
            }
            byte = static_cast<char>(high * 16 + low);
            i += 2;
        }
        if (byte == '\0') {
            return std::nullopt;
        }
        bytes += byte;
    }
    return FilePath(std::move(bytes));
}

} // namespace lumeo
