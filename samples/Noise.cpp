#include "samples/Noise.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace lumeo::samples {

std::string Noise::bytes(std::size_t count) {
    std::string result(count, '\0');
    for (std::size_t position = 0; position < count; position += sizeof(std::uint64_t)) {
        const std::uint64_t value = next();
        std::memcpy(result.data() + position, &value, std::min(sizeof value, count - position));
    }
    return result;
}

std::string Noise::pixels(std::size_t count) {
    std::string result = bytes(count);
    std::replace(result.begin(), result.end(), '\xFF', '\x55');
    return result;
}

std::string Noise::letters(std::size_t count) {
    constexpr std::string_view alphabet = "ABCDEFGHJKLMNPQRSTUVWXYZ0123456789";
    std::string result(count, '\0');
    std::generate(result.begin(), result.end(), [&] { return alphabet[next() % alphabet.size()]; });
    return result;
}

} // namespace lumeo::samples
