#include "support/AttackFiles.h"

#include "support/TinyMovies.h"

namespace lumeo {
namespace {

constexpr auto little = littleEndianBytes;
constexpr unsigned heapTag = 0x300A;

} // namespace

std::string crwHeap(const std::vector<std::pair<unsigned, std::string>>& values) {
    std::string bytes;
    std::string directory = little(values.size(), 2);
    for (const auto& [tag, value] : values) {
        directory += little(tag, 2) + little(value.size(), 4) + little(bytes.size(), 4);
        bytes += value;
    }
    return bytes + directory + little(bytes.size(), 4);
}

std::string crwFile(const std::string& heap) {
    return "II" + little(26, 4) + "HEAPCCDR" + little(0x00010002, 4) + std::string(8, '\0') + heap;
}

std::string crwOfDoublingHeaps(int levels) {
    std::string heap = crwHeap({});
    for (int i = 0; i < levels; ++i) {
        const std::string entry = little(heapTag, 2) + little(heap.size(), 4) + little(0, 4);
        const std::size_t directory = heap.size();
        heap += little(2, 2) + entry + entry + little(directory, 4);
    }
    return crwFile(heap);
}

std::string crwOfNestedHeaps(int depth) {
    std::string heap = crwHeap({});
    for (int i = 0; i < depth; ++i) {
        const std::size_t directory = heap.size();
        heap +=
            little(1, 2) + little(heapTag, 2) + little(directory, 4) + little(0, 4) + little(directory, 4);
    }
    return crwFile(heap);
}

} // namespace lumeo
