#include "media/FieldReader.h"

namespace lumeo {

std::uint64_t FieldReader::number(std::size_t size) {
    std::uint64_t value = 0;
    if (const auto bytes = take(size)) {
        for (const char byte : *bytes) {
            value = value << 8U | static_cast<unsigned char>(byte);
        }
    }
    return value;
}

std::string FieldReader::text() {
    constexpr std::size_t longest = 256;
    std::string text;
    while (const auto byte = static_cast<char>(number(1))) {
        text += byte;
        if (text.size() > longest) {
            fail();
        }
    }
    return text;
}

std::optional<std::string_view> FieldReader::take(std::size_t count) {
    const auto bytes = count <= range_.length ? file_->view(range_.offset, count) : std::nullopt;
    if (!bytes) {
        fail();
        return std::nullopt;
    }
    range_.offset += count;
    range_.length -= count;
    return bytes;
}

void FieldReader::fail() {
    hasFailed_ = true;
    range_.length = 0;
}

} // namespace lumeo
