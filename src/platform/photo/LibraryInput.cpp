#include "platform/photo/LibraryInput.h"

#include <algorithm>
#include <cstring>

#include <exiv2/error.hpp>

namespace lumeo {

LibraryInput::LibraryInput(FileWindow& file)
    : file_(file), size_(static_cast<std::size_t>(std::min(file.size(), largestSize))) {}

int LibraryInput::open() {
    position_ = 0;
    isAtEnd_ = false;
    return 0;
}

Exiv2::DataBuf LibraryInput::read(long count) {
    Exiv2::DataBuf buffer(std::clamp<long>(count, 0, static_cast<long>(size_ - position_)));
    buffer.size_ = read(buffer.pData_, buffer.size_);
    if (buffer.size_ < count) {
        isAtEnd_ = true;
    }
    return buffer;
}

long LibraryInput::read(Exiv2::byte* buffer, long count) {
    if (count <= 0) {
        return 0;
    }
    const std::size_t wanted = static_cast<std::size_t>(count);
    const std::size_t part = std::min(wanted, size_ - position_);
    isAtEnd_ = isAtEnd_ || part < wanted;
    std::size_t done = 0;
    if (part <= FileWindow::headSize) {
        if (const auto bytes = file_.view(position_, part)) {
            std::memcpy(buffer, bytes->data(), part);
            done = part;
        }
    } else {
        done = file_.copy(position_, reinterpret_cast<char*>(buffer), part);
    }
    position_ += done;
    isAtEnd_ = isAtEnd_ || done < part;
    return static_cast<long>(done);
}

int LibraryInput::getb() {
    Exiv2::byte value = 0;
    return read(&value, 1) == 1 ? value : EOF;
}

int LibraryInput::seek(long offset, Position from) {
    const long start = from == beg ? 0 : static_cast<long>(from == cur ? position_ : size_);
    long target = 0;
    if (__builtin_add_overflow(start, offset, &target) || target < 0 || target > static_cast<long>(size_)) {
        return 1;
    }
    position_ = static_cast<std::size_t>(target);
    isAtEnd_ = false;
    return 0;
}

Exiv2::byte* LibraryInput::mmap(bool isWriteable) {
    if (isWriteable || size_ > largestMapping) {
        throw Exiv2::Error(Exiv2::kerCallFailed, path(), "file too large", "mmap");
    }
    if (!mapping_) {
        // Where reading fails, zeros stand. Some stand behind the end too: the library's reader of CRW looks
        // for the end of a text that reaches there.
        constexpr std::size_t guard = 16;
        mapping_ = std::make_unique<Exiv2::byte[]>(size_ + guard);
        file_.copy(0, reinterpret_cast<char*>(mapping_.get()), size_);
    }
    return mapping_.get();
}

int LibraryInput::munmap() {
    mapping_.reset();
    return 0;
}

long LibraryInput::write(const Exiv2::byte* /*data*/, long /*count*/) {
    return 0;
}

long LibraryInput::write(BasicIo& /*source*/) {
    return 0;
}

int LibraryInput::putb(Exiv2::byte /*data*/) {
    return EOF;
}

void LibraryInput::transfer(BasicIo& /*source*/) {
    throw Exiv2::Error(Exiv2::kerFunctionNotSupported, "transfer");
}

} // namespace lumeo
