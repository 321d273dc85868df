#include "dates/PhotoMetadataExtractor.h"
#include "support/MemoryFileSystem.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    lumeo::MemoryFileSystem disk;
    const lumeo::FilePath path("/file");
    disk.addFile(path, std::string_view(reinterpret_cast<const char*>(data), size));
    static_cast<void>(lumeo::PhotoMetadataExtractor::extractMetadata(disk, path));
    return 0;
}
