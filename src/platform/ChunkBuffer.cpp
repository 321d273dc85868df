#include "platform/ChunkBuffer.h"

#include <memory>
#include <new>

namespace lumeo {
namespace {

constexpr std::align_val_t pageAlignment{4096};

struct AlignedDelete {
    void operator()(std::byte* bytes) const noexcept { ::operator delete(bytes, pageAlignment); }
};

} // namespace

std::span<std::byte> threadChunkBuffer(std::size_t size) {
    thread_local std::unique_ptr<std::byte, AlignedDelete> buffer;
    thread_local std::size_t capacity = 0;
    if (capacity < size) {
        buffer.reset(static_cast<std::byte*>(::operator new(size, pageAlignment)));
        capacity = size;
    }
    return {buffer.get(), size};
}

} // namespace lumeo
