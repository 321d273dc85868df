#include "media/Decompression.h"

#include <array>
#include <cstdint>
#include <memory>

#include <brotli/decode.h>
#include <zlib.h>

namespace lumeo {

namespace {

constexpr std::size_t partSize = 16 * 1024;

} // namespace

std::string zlibDecompressed(std::string_view bytes) {
    std::string output;
    z_stream stream{};
    if (inflateInit(&stream) != Z_OK) {
        return output;
    }
    // The library only reads from this pointer.
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
    stream.avail_in = static_cast<uInt>(bytes.size());
    std::array<char, partSize> part;
    int state = Z_OK;
    while (state == Z_OK && output.size() < mostDecompressed) {
        stream.next_out = reinterpret_cast<Bytef*>(part.data());
        stream.avail_out = static_cast<uInt>(part.size());
        state = inflate(&stream, Z_NO_FLUSH);
        output.append(part.data(), part.size() - stream.avail_out);
    }
    inflateEnd(&stream);
    return output;
}

std::string brotliDecompressed(std::string_view bytes) {
    std::string output;
    const std::unique_ptr<BrotliDecoderState, decltype(&BrotliDecoderDestroyInstance)> decoder(
        BrotliDecoderCreateInstance(nullptr, nullptr, nullptr), BrotliDecoderDestroyInstance);
    if (!decoder) {
        return output;
    }
    const auto* input = reinterpret_cast<const std::uint8_t*>(bytes.data());
    std::size_t inputSize = bytes.size();
    std::array<std::uint8_t, partSize> part;
    BrotliDecoderResult state = BROTLI_DECODER_RESULT_NEEDS_MORE_OUTPUT;
    while (state == BROTLI_DECODER_RESULT_NEEDS_MORE_OUTPUT && output.size() < mostDecompressed) {
        std::uint8_t* target = part.data();
        std::size_t room = part.size();
        state = BrotliDecoderDecompressStream(decoder.get(), &inputSize, &input, &room, &target, nullptr);
        output.append(reinterpret_cast<const char*>(part.data()), part.size() - room);
    }
    return output;
}

} // namespace lumeo
