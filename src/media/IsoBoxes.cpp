#include "media/IsoBoxes.h"

#include <algorithm>

namespace lumeo {

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
