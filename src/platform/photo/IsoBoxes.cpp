#include "platform/photo/IsoBoxes.h"

#include <algorithm>

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

std::optional<Box> BoxWalk::next() {
    FieldReader fields(*file_, rest_);
    std::uint64_t size = fields.number(4);
    const std::uint32_t type = fields.code();
    if (size == 1) {
        size = fields.number(8);
    } else if (size == 0) {
        size = rest_.length;
    }
    const std::uint64_t header = fields.rest().offset - rest_.offset;
    if (fields.hasFailed() || size < header || ++count_ > mostBoxes) {
        return std::nullopt;
    }
    size = std::min(size, rest_.length);
    const Box box{type, {rest_.offset + header, size - header}};
    rest_ = {rest_.offset + size, rest_.length - size};
    return box;
}

std::optional<FileRange> BoxWalk::find(std::uint32_t type) {
    while (const auto box = next()) {
        if (box->type == type) {
            return box->content;
        }
    }
    return std::nullopt;
}

} // namespace lumeo
