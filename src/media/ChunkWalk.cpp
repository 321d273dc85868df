#include "media/ChunkWalk.h"

#include "media/ByteOrder.h"

#include <algorithm>

namespace lumeo {

std::optional<Chunk> ChunkWalk::next() {
    constexpr std::uint64_t headSize = 8;
    const auto head = rest_.length < headSize ? std::nullopt : file_->view(rest_.offset, headSize);
    if (!head) {
        return std::nullopt;
    }
    const std::uint64_t length = numberAt<std::uint32_t>(*head, layout_.lengthAt, layout_.order);
    const Chunk chunk{std::string(head->substr(layout_.tagAt, 4)),
                      {rest_.offset + headSize, std::min(length, rest_.length - headSize)}};
    const std::uint64_t padding = layout_.isPadded ? length % 2 : 0;
    const std::uint64_t step = std::min(headSize + length + layout_.checksumSize + padding, rest_.length);
    rest_ = {rest_.offset + step, rest_.length - step};
    return chunk;
}

} // namespace lumeo
