#include "media/photo/XmpReader.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    lumeo::PhotoProperties properties;
    lumeo::fillFromXmp(std::string_view(reinterpret_cast<const char*>(data), size), properties);
    return 0;
}
