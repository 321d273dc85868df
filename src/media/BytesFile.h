#pragma once

#include "platform/FileSystem.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <utility>

namespace lumeo {

/// Bytes in memory that are read like a file, for parts of a file that were compressed or stored as text.
class BytesFile final : public ReadableFile {
public:
    explicit BytesFile(std::string bytes) : bytes_(std::move(bytes)) {}

    FileResult<std::size_t> read(std::span<std::byte> buffer) override {
        const FileResult<std::size_t> count = readAt(position_, buffer);
        position_ += static_cast<std::int64_t>(*count);
        return count;
    }
    FileResult<std::size_t> readAt(std::int64_t offset, std::span<std::byte> buffer) override {
        const std::size_t start = std::min(static_cast<std::size_t>(offset), bytes_.size());
        const std::size_t count = std::min(buffer.size(), bytes_.size() - start);
        std::memcpy(buffer.data(), bytes_.data() + start, count);
        return count;
    }
    FileResult<FileStatus> status() override {
        FileStatus status;
        status.kind = FileKind::regular;
        status.size = static_cast<std::int64_t>(bytes_.size());
        return status;
    }

private:
    std::string bytes_;
    std::int64_t position_ = 0;
};

} // namespace lumeo
