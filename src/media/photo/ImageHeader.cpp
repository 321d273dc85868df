#include "media/photo/ImageHeader.h"

#include "media/ByteOrder.h"

#include <array>
#include <cstdlib>
#include <string_view>

namespace lumeo {

namespace {

struct Signature {
    std::size_t at;
    std::string_view bytes;
    ImageKind kind;
};

using namespace std::string_view_literals;

/// The first signature that matches decides.
constexpr std::array signatures{
    Signature{0, "\xFF\xD8\xFF"sv, ImageKind::jpeg},
    Signature{0,
              "\xFF\x01"
              "Exiv2"sv,
              ImageKind::jpeg},
    Signature{6, "HEAPCCDR"sv, ImageKind::crw},
    Signature{0, "II*\0"sv, ImageKind::tiff},
    Signature{0, "MM\0*"sv, ImageKind::tiff},
    Signature{0, "II+\0"sv, ImageKind::tiff},
    Signature{0, "MM\0+"sv, ImageKind::tiff},
    Signature{0, "IIRO"sv, ImageKind::tiff},
    Signature{0, "IIRS"sv, ImageKind::tiff},
    Signature{0, "MMOR"sv, ImageKind::tiff},
    Signature{0, "IIU\0"sv, ImageKind::tiff},
    Signature{0, "FUJIFILMCCD-RAW"sv, ImageKind::raf},
    Signature{0, "FOVb"sv, ImageKind::x3f},
    Signature{0, "\0MRM"sv, ImageKind::mrw},
    Signature{0, "\x89PNG\r\n\x1A\n"sv, ImageKind::png},
    Signature{8, "WEBP"sv, ImageKind::webp},
    Signature{4, "ftyp"sv, ImageKind::isoMedia},
    Signature{4, "jP  \r\n\x87\n"sv, ImageKind::jp2},
    Signature{0, "\xFF\x4F\xFF\x51"sv, ImageKind::jpegCodestream},
    Signature{4, "JXL \r\n\x87\n"sv, ImageKind::jxl},
    Signature{0, "8BPS"sv, ImageKind::psd},
    Signature{0, "GIF8"sv, ImageKind::gif},
    Signature{0, "BM"sv, ImageKind::bmp},
    Signature{0, "\0\0\x01\0"sv, ImageKind::ico},
};

PixelSize pngSize(std::string_view header) {
    return {numberAt<std::uint32_t>(header, 16, std::endian::big),
            numberAt<std::uint32_t>(header, 20, std::endian::big)};
}

PixelSize psdSize(std::string_view header) {
    return {numberAt<std::uint32_t>(header, 18, std::endian::big),
            numberAt<std::uint32_t>(header, 14, std::endian::big)};
}

PixelSize gifSize(std::string_view header) {
    return {numberAt<std::uint16_t>(header, 6, std::endian::little),
            numberAt<std::uint16_t>(header, 8, std::endian::little)};
}

PixelSize bmpSize(std::string_view header) {
    constexpr std::uint32_t oldHeaderSize = 12;
    if (numberAt<std::uint32_t>(header, 14, std::endian::little) == oldHeaderSize) {
        return {numberAt<std::uint16_t>(header, 18, std::endian::little),
                numberAt<std::uint16_t>(header, 20, std::endian::little)};
    }
    // A negative height means that the rows go from top to bottom.
    const auto width = static_cast<std::int32_t>(numberAt<std::uint32_t>(header, 18, std::endian::little));
    const auto height = static_cast<std::int32_t>(numberAt<std::uint32_t>(header, 22, std::endian::little));
    return {width, std::abs(std::int64_t{height})};
}

PixelSize icoSize(std::string_view header) {
    const auto side = [&](std::size_t at) {
        const auto value = static_cast<unsigned char>(header[at]);
        return std::int64_t{value == 0 ? 256 : value};
    };
    return {side(6), side(7)};
}

PixelSize codestreamSize(std::string_view header) {
    const auto number = [&](std::size_t at) {
        return std::int64_t{numberAt<std::uint32_t>(header, at, std::endian::big)};
    };
    return {number(8) - number(16), number(12) - number(20)};
}

PixelSize webpSize(std::string_view header) {
    const auto number32 = [&](std::size_t at) {
        return numberAt<std::uint32_t>(header, at, std::endian::little);
    };
    if (header.substr(12, 4) == "VP8X") {
        return {(number32(24) & 0xFFFFFFU) + 1, (number32(26) >> 8U) + 1};
    }
    if (header.substr(12, 4) == "VP8L" && header[20] == '\x2F') {
        return {(number32(21) & 0x3FFFU) + 1, (number32(21) >> 14U & 0x3FFFU) + 1};
    }
    if (header.substr(12, 4) == "VP8 " && header.substr(23, 3) == "\x9D\x01\x2A") {
        return {number32(26) & 0x3FFFU, number32(26) >> 16U & 0x3FFFU};
    }
    return {};
}

} // namespace

ImageKind imageKind(FileWindow& file) {
    for (const Signature& signature : signatures) {
        if (file.view(signature.at, signature.bytes.size()) == signature.bytes) {
            return signature.kind;
        }
    }
    return ImageKind::unknown;
}

std::optional<PixelSize> headerPixelSize(FileWindow& file, ImageKind kind) {
    struct Reading {
        ImageKind kind;
        std::size_t needed;
        PixelSize (*size)(std::string_view);
    };
    constexpr std::array readings{
        Reading{ImageKind::png, 24, pngSize},   Reading{ImageKind::gif, 10, gifSize},
        Reading{ImageKind::bmp, 26, bmpSize},   Reading{ImageKind::ico, 8, icoSize},
        Reading{ImageKind::webp, 30, webpSize}, Reading{ImageKind::jpegCodestream, 24, codestreamSize},
        Reading{ImageKind::psd, 22, psdSize},
    };
    for (const Reading& reading : readings) {
        const auto header = reading.kind == kind ? file.view(0, reading.needed) : std::nullopt;
        if (!header) {
            continue;
        }
        const PixelSize size = reading.size(*header);
        if (size.width > 0 && size.height > 0) {
            return size;
        }
    }
    return std::nullopt;
}

} // namespace lumeo
