#pragma once

#include "platform/PosixHandle.h"

#include <fcntl.h>

namespace lumeo {

class PosixReadableFile final : public ReadableFile {
public:
    PosixReadableFile(Descriptor descriptor, FilePath path);

    FileResult<std::size_t> read(std::span<std::byte> buffer) override;
    FileResult<std::size_t> readAt(std::int64_t offset, std::span<std::byte> buffer) override;
    FileResult<FileStatus> status() override;
    void evict() override;
    bool isOpenForWriting() override;
    [[nodiscard]] std::optional<int> descriptor() const override { return descriptor_.get(); }

private:
    /// Sequential readers want the system to read ahead. For a reader that only needs the header of a large
    /// file, reading ahead is wasted: on a cold disk six of seven bytes.
    void advise(int advice);

    Descriptor descriptor_;
    FilePath path_;
    int advice_ = POSIX_FADV_NORMAL;
};

class PosixWritableFile final : public WritableFile {
public:
    PosixWritableFile(Descriptor descriptor, FilePath path);

    FileResult<void> write(std::span<const std::byte> bytes) override;
    FileResult<std::size_t> readAt(std::int64_t offset, std::span<std::byte> buffer) override;
    FileResult<FileStatus> status() override;
    FileResult<void> lock() override;
    FileResult<void> flush() override;
    void evict() override;
    FileResult<void> close() override;

private:
    void beginWriteBack();

    Descriptor descriptor_;
    FilePath path_;
    std::int64_t written_ = 0;
    std::int64_t writeBackBegun_ = 0; ///< the bytes before it are being written to the device
};

class PosixFileLock final : public FileLock {
public:
    PosixFileLock(Descriptor descriptor, FilePath path);

    FileResult<FileStatus> status() override;

private:
    Descriptor descriptor_;
    FilePath path_;
};

/// Takes the lock of an open file without waiting.
FileResult<void> takeLock(const Descriptor& descriptor, const FilePath& path);

} // namespace lumeo
