#include "media/BytesFile.h"
#include "media/photo/CrwReader.h"

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    lumeo::BytesFile file(std::string(reinterpret_cast<const char*>(data), size));
    lumeo::FileWindow window(file);
    static_cast<void>(lumeo::readCrw(window));
    return 0;
}
