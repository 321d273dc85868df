#pragma once

#include "platform/FileSystem.h"
#include "platform/PosixHandle.h"

#include <unistd.h>

namespace lumeo {

/// A file that a helper received open, with its size. Inside the cage the helper can only read its bytes.
class GivenFile final : public ReadableFile {
public:
    GivenFile(Descriptor descriptor, std::int64_t size) : descriptor_(std::move(descriptor)) {
        status_.kind = FileKind::regular;
        status_.size = size;
    }

    FileResult<std::size_t> read(std::span<std::byte> buffer) override {
        FileResult<std::size_t> count = readAt(position_, buffer);
        if (count) {
            position_ += static_cast<std::int64_t>(*count);
        }
        return count;
    }
    FileResult<std::size_t> readAt(std::int64_t offset, std::span<std::byte> buffer) override {
        const ssize_t count =
            retrying([&] { return pread(descriptor_.get(), buffer.data(), buffer.size(), offset); });
        if (count < 0) {
            return FileError{FileAction::read, {}, errno};
        }
        return static_cast<std::size_t>(count);
    }
    FileResult<FileStatus> status() override { return status_; }

private:
    Descriptor descriptor_;
    FileStatus status_;
    std::int64_t position_ = 0;
};

} // namespace lumeo
