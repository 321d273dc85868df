#pragma once

#include "platform/PosixHandle.h"

namespace lumeo {

class PosixReadableFile final : public ReadableFile {
public:
    PosixReadableFile(Descriptor descriptor, FilePath path);

    FileResult<std::size_t> read(std::span<std::byte> buffer) override;
    FileResult<std::size_t> readAt(std::int64_t offset, std::span<std::byte> buffer) override;
    FileResult<FileStatus> status() override;

private:
    Descriptor descriptor_;
    FilePath path_;
};

class PosixWritableFile final : public WritableFile {
public:
    PosixWritableFile(Descriptor descriptor, FilePath path);

    FileResult<void> write(std::span<const std::byte> bytes) override;
    FileResult<void> flush() override;
    void evict() override;
    FileResult<void> close() override;

private:
    Descriptor descriptor_;
    FilePath path_;
};

} // namespace lumeo
