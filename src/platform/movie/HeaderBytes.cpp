#include "platform/movie/HeaderBytes.h"

#include <algorithm>
#include <span>

namespace lumeo {
namespace {

constexpr std::int64_t blockSize = 4096;
constexpr int mostBlocks = 1024;

} // namespace

HeaderBytes::HeaderBytes(ReadableFile& file) : file_(file), blocksLeft_(mostBlocks) {
    if (const FileResult<FileStatus> status = file.status()) {
        size_ = status->size;
    }
}

std::string HeaderBytes::read(std::int64_t offset, std::size_t count) {
    std::string bytes;
    while (bytes.size() < count && offset >= 0 && offset < size_) {
        const std::int64_t start = offset - offset % blockSize;
        if (start != blockStart_ && !loadBlock(start)) {
            break;
        }
        const std::string_view rest = std::string_view(block_).substr(
            std::min(static_cast<std::size_t>(offset - start), block_.size()), count - bytes.size());
        if (rest.empty()) {
            break;
        }
        bytes.append(rest);
        offset += static_cast<std::int64_t>(rest.size());
    }
    return bytes;
}

bool HeaderBytes::loadBlock(std::int64_t blockStart) {
    if (blocksLeft_ == 0) {
        return false;
    }
    --blocksLeft_;
    blockStart_ = blockStart;
    block_.resize(blockSize);
    std::size_t filled = 0;
    while (filled < block_.size()) {
        const std::span<char> rest = std::span(block_).subspan(filled);
        const auto read =
            file_.readAt(blockStart + static_cast<std::int64_t>(filled), std::as_writable_bytes(rest));
        if (!read || *read == 0) {
            break;
        }
        filled += *read;
    }
    block_.resize(filled);
    return true;
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
