#include "media/movie/HeaderBytes.h"

#include <algorithm>

namespace lumeo {

HeaderBytes::HeaderBytes(ReadableFile& file)
    : window_(file), size_(static_cast<std::int64_t>(window_.size())) {}

std::string HeaderBytes::read(std::int64_t offset, std::size_t count) {
    if (offset < 0 || offset >= size_) {
        return {};
    }
    const auto start = static_cast<std::uint64_t>(offset);
    return std::string(
        window_.view(start, std::min(count, window_.size() - start)).value_or(std::string_view()));
}

std::uint64_t bigEndian(std::string_view bytes, std::size_t offset, std::size_t width) noexcept {
    if (offset > bytes.size() || width > bytes.size() - offset) {
        return 0;
    }
    std::uint64_t number = 0;
    for (const char byte : bytes.substr(offset, width)) {
        number = number << 8U | static_cast<unsigned char>(byte);
    }
    return number;
}

std::uint64_t littleEndian(std::string_view bytes, std::size_t offset, std::size_t width) noexcept {
    if (offset > bytes.size() || width > bytes.size() - offset) {
        return 0;
    }
    std::uint64_t number = 0;
    for (std::size_t index = width; index-- > 0;) {
        number = number << 8U | static_cast<unsigned char>(bytes[offset + index]);
    }
    return number;
}

} // namespace lumeo
