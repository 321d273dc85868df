#include "dates/VideoMetadataExtractor.h"
#include "media/helper/MediaHelper.h"
#include "support/MemoryFileSystem.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    lumeo::MemoryFileSystem disk;
    const lumeo::FilePath path("/file");
    disk.addFile(path, std::string_view(reinterpret_cast<const char*>(data), size));
    lumeo::MediaHelper none(std::nullopt);
    static_cast<void>(lumeo::VideoMetadataExtractor::extractMetadata(disk, path, none));
    return 0;
}
