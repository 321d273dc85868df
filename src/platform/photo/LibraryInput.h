#pragma once

#include "platform/photo/FileWindow.h"

#include <memory>
#include <string>

#include <exiv2/basicio.hpp>

namespace lumeo {

/// Lets the metadata library read through our file, never through a path of its own: to it a name may
/// mean a network address or the standard input. Writing is refused. Used by one thread; the file
/// outlives it.
class LibraryInput final : public Exiv2::BasicIo {
public:
    /// Longer files look cut off here. Nothing that the library reads for us lies that far in.
    static constexpr std::uint64_t largestSize = 512 * 1024 * 1024;
    /// Where the library wants a whole file in memory, it gets that only up to this size.
    static constexpr std::size_t largestMapping = 24 * 1024 * 1024;

    explicit LibraryInput(FileWindow& file);

    int open() override;
    int close() override { return 0; }
    Exiv2::DataBuf read(long count) override;
    long read(Exiv2::byte* buffer, long count) override;
    int getb() override;
    int seek(long offset, Position from) override;
    Exiv2::byte* mmap(bool isWriteable) override;
    int munmap() override;
    [[nodiscard]] long tell() const override { return static_cast<long>(position_); }
    [[nodiscard]] size_t size() const override { return size_; }
    [[nodiscard]] bool isopen() const override { return true; }
    [[nodiscard]] int error() const override { return 0; }
    [[nodiscard]] bool eof() const override { return isAtEnd_; }
    [[nodiscard]] std::string path() const override { return {}; }

    long write(const Exiv2::byte* data, long count) override;
    long write(BasicIo& source) override;
    int putb(Exiv2::byte data) override;
    void transfer(BasicIo& source) override;

private:
    FileWindow& file_;
    std::size_t size_;
    std::size_t position_ = 0;
    bool isAtEnd_ = false;
    std::unique_ptr<Exiv2::byte[]> mapping_;
};

} // namespace lumeo
