#include "media/photo/JxlReader.h"

#include "media/ByteOrder.h"
#include "media/Decompression.h"
#include "media/IsoBoxes.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <limits>
#include <utility>

namespace lumeo {

namespace {

/// Exif starts with a number: the distance from the end of this number to the TIFF structure.
std::string tiffOf(std::string exif) {
    constexpr std::size_t numberSize = 4;
    if (exif.size() < numberSize) {
        return {};
    }
    const auto distance = numberAt<std::uint32_t>(exif, 0, std::endian::big);
    exif.erase(0, std::min<std::size_t>(numberSize + std::size_t{distance}, exif.size()));
    return exif;
}

} // namespace

JxlContents readJxl(FileWindow& file) {
    JxlContents contents;
    BoxWalk boxes(file, {0, std::numeric_limits<std::int64_t>::max()});
    while (const auto box = boxes.next()) {
        FileRange content = box->content;
        std::uint32_t type = box->type;
        const bool isPacked = type == fourCC("brob"); // the type of the box in it comes first
        if (isPacked) {
            const auto name = file.view(content.offset, std::min<std::uint64_t>(content.length, 4));
            type = name && name->size() == 4 ? fourCC(*name) : 0;
            content = behind(content, 4);
        }
        const bool isExif = type == fourCC("Exif") && !contents.exif;
        const bool isXmp = type == fourCC("xml ") && !contents.xmpPacket;
        if ((!isExif && !isXmp) || content.length > FileWindow::largestView) {
            continue;
        }
        std::string bytes = file.read(content.offset, static_cast<std::size_t>(content.length));
        bytes = isPacked ? brotliDecompressed(bytes) : std::move(bytes);
        if (isExif) {
            contents.exif = tiffOf(std::move(bytes));
        } else {
            contents.xmpPacket = std::move(bytes);
        }
    }
    return contents;
}

} // namespace lumeo
