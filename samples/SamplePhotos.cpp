#include "samples/SampleFiles.h"

#include "samples/Boxes.h"

#include <algorithm>
#include <vector>

namespace lumeo::samples {
namespace {

/// The profile that a camera embeds. Readers look only at its header.
std::string colorProfile(Noise& noise) {
    const std::string rest = noise.bytes(428);
    return be32(548) + "appl" + be32(0x04000000) + "mntrRGB XYZ " + std::string(12, '\1') + "acspAPPL" +
           std::string(76, '\0') + rest;
}

/// Includes the padding that cameras leave for later edits.
std::string cameraXmp() {
    const std::string packet = tinyXmp("xmp:Rating=\"0\"");
    return std::string("http://ns.adobe.com/xap/1.0/") + '\0' + packet + std::string(2'400, ' ');
}

std::string jpegTables(int width, int height, Noise& noise) {
    std::string bytes = jpegSegment(0xDB, std::string(1, '\0') + noise.pixels(64));
    bytes += jpegSegment(0xDB, std::string(1, '\1') + noise.pixels(64));
    bytes += jpegSegment(0xC0, '\x08' + be16(static_cast<std::uint64_t>(height)) +
                                   be16(static_cast<std::uint64_t>(width)) +
                                   std::string("\3\1\x22\0\2\x11\1\3\x11\1", 10));
    for (const char kind : {'\x00', '\x10', '\x01', '\x11'}) {
        bytes +=
            jpegSegment(0xC4, std::string(1, kind) + std::string("\0\2\1\3\3\2\4\3\5\5\4\4\0\0\1\x7D", 16) +
                                  noise.pixels(162));
    }
    return bytes + jpegSegment(0xDA, std::string("\3\1\0\2\x11\3\x11\0\x3F\0", 10));
}

/// Fills the rest of the file with pixels. Where no reader looks, it is a hole.
SampleFile withPixels(std::string head, Noise& noise, std::int64_t size, const std::string& end) {
    const std::size_t wanted = std::min(solidHeadSize, static_cast<std::size_t>(size) - end.size());
    if (head.size() < wanted) {
        head += noise.pixels(wanted - head.size());
    }
    const auto least = static_cast<std::int64_t>(head.size() + end.size());
    return {std::move(head), end, std::max(size, least)};
}

struct HeicItem {
    std::string_view type;
    std::string flags;      ///< of its info entry
    std::uint64_t length;   ///< bytes of its data
    std::string properties; ///< its part of the association box
};

/// 48 tiles, the grid that joins them, and Exif. The data of the tiles follows the data of the other two.
class HeicLayout {
public:
    HeicLayout(std::string exifItem, const Shot& shot, Noise& noise, std::int64_t size)
        : exifItem_(std::move(exifItem)),
          shot_(shot),
          profile_(colorProfile(noise)),
          tileConfig_(noise.pixels(96)),
          tileLength_(static_cast<std::uint64_t>(size) / (tileCount + 1)) {}

    std::string head() {
        const std::string type = movieBox("ftyp", "heic" + be32(0) + "mif1heic");
        const std::uint64_t dataAt = type.size() + meta(0).size() + 8;
        const std::string data = gridItem() + exifItem_;
        return type + meta(dataAt) + be32(8 + data.size() + tileCount * tileLength_) + "mdat" + data;
    }

    [[nodiscard]] std::int64_t tilesLength() const {
        return static_cast<std::int64_t>(tileCount * tileLength_);
    }

private:
    static constexpr std::uint64_t tileCount = 48;
    static constexpr std::uint64_t gridId = tileCount + 1;
    static constexpr std::uint64_t exifId = tileCount + 2;

    [[nodiscard]] std::string gridItem() const {
        return std::string("\0\0\5\7", 4) + be16(static_cast<std::uint64_t>(shot_.width)) +
               be16(static_cast<std::uint64_t>(shot_.height));
    }

    [[nodiscard]] std::string meta(std::uint64_t dataAt) const {
        return fullBox("meta", fullBox("hdlr", be32(0) + "pict" + std::string(13, '\0')) +
                                   fullBox("pitm", be16(gridId)) + itemInfos() + references() + properties() +
                                   locations(dataAt));
    }

    static std::string itemInfos() {
        const auto info = [](std::uint64_t id, std::string_view type, unsigned flags) {
            return fullBox("infe", be16(id) + be16(0) + std::string(type) + '\0', 2, flags);
        };
        std::string infos = be16(exifId);
        for (std::uint64_t id = 1; id <= tileCount; ++id) {
            infos += info(id, "hvc1", 1);
        }
        return fullBox("iinf", infos + info(gridId, "grid", 0) + info(exifId, "Exif", 1));
    }

    static std::string references() {
        std::string tiles = be16(gridId) + be16(tileCount);
        for (std::uint64_t id = 1; id <= tileCount; ++id) {
            tiles += be16(id);
        }
        return fullBox("iref",
                       movieBox("dimg", tiles) + movieBox("cdsc", be16(exifId) + be16(1) + be16(gridId)));
    }

    [[nodiscard]] std::string properties() const {
        const auto extent = [](int width, int height) {
            return fullBox("ispe", be32(static_cast<std::uint64_t>(width)) +
                                       be32(static_cast<std::uint64_t>(height)));
        };
        const std::string container =
            movieBox("ipco", movieBox("colr", "prof" + profile_) + movieBox("hvcC", tileConfig_) +
                                 extent(512, 512) + extent(shot_.width, shot_.height) +
                                 movieBox("irot", std::string(1, '\0')) + fullBox("pixi", "\3\x08\x08\x08"));
        std::string associations = be32(gridId);
        for (std::uint64_t id = 1; id <= tileCount; ++id) {
            associations += be16(id) + std::string("\3\x81\x82\3", 4);
        }
        associations += be16(gridId) + std::string("\4\x81\4\5\6", 5);
        return movieBox("iprp", container + fullBox("ipma", associations));
    }

    [[nodiscard]] std::string locations(std::uint64_t dataAt) const {
        const auto location = [](std::uint64_t id, std::uint64_t offset, std::uint64_t length) {
            return be16(id) + be16(0) + be16(0) + be16(1) + be32(offset) + be32(length);
        };
        const std::uint64_t exifAt = dataAt + gridItem().size();
        const std::uint64_t tilesAt = exifAt + exifItem_.size();
        std::string list = std::string("\x44\0", 2) + be16(exifId);
        for (std::uint64_t id = 1; id <= tileCount; ++id) {
            list += location(id, tilesAt + (id - 1) * tileLength_, tileLength_);
        }
        list += location(gridId, dataAt, gridItem().size()) + location(exifId, exifAt, exifItem_.size());
        return fullBox("iloc", list, 1);
    }

    std::string exifItem_;
    const Shot& shot_;
    std::string profile_;
    std::string tileConfig_;
    std::uint64_t tileLength_;
};

} // namespace

SampleFile jpegOf(const Shot& shot, Noise& noise, std::int64_t size) {
    std::string head = "\xFF\xD8" + jpegSegment(0xE1, std::string("Exif\0\0", 6) + cameraExif(shot, noise));
    if (shot.camera == Camera::iphone) {
        head += jpegSegment(0xE2, std::string("ICC_PROFILE\0\1\1", 14) + colorProfile(noise));
    } else if (shot.camera != Camera::galaxy) {
        head += jpegSegment(0xE1, cameraXmp());
    }
    head += jpegTables(shot.width, shot.height, noise);
    return withPixels(std::move(head), noise, size, "\xFF\xD9");
}

SampleFile bareJpeg(int width, int height, Noise& noise, std::int64_t size) {
    std::string head = "\xFF\xD8" + jpegSegment(0xE0, std::string("JFIF\0\1\1\0\0\1\0\1\0\0", 14));
    head += jpegTables(width, height, noise);
    return withPixels(std::move(head), noise, size, "\xFF\xD9");
}

SampleFile heicOf(const Shot& shot, Noise& noise, std::int64_t size) {
    const std::string exifItem = be32(6) + std::string("Exif\0\0", 6) + cameraExif(shot, noise);
    HeicLayout layout(exifItem, shot, noise, size);
    std::string head = layout.head();
    const std::int64_t whole = static_cast<std::int64_t>(head.size()) + layout.tilesLength();
    return withPixels(std::move(head), noise, whole, "");
}

SampleFile rawOf(const Shot& shot, Noise& noise, std::int64_t size) {
    const TiffMaker tiff(shot.camera != Camera::iphone);
    const auto structure = [&](std::size_t pixelsAt, Noise& chance) {
        return cameraExif(
            shot, chance,
            {tiff.number32(0x00FE, 0), tiff.number32(0x0100, static_cast<std::uint32_t>(shot.width)),
             tiff.number32(0x0101, static_cast<std::uint32_t>(shot.height)), tiff.number16(0x0102, 14),
             tiff.number16(0x0103, 1), tiff.number16(0x0106, 32803),
             tiff.number32(0x0111, static_cast<std::uint32_t>(pixelsAt)), tiff.number16(0x0115, 1),
             tiff.number32(0x0116, static_cast<std::uint32_t>(shot.height)),
             tiff.number32(0x0117, static_cast<std::uint32_t>(size - static_cast<std::int64_t>(pixelsAt)))});
    };
    Noise rehearsal = noise;
    const std::size_t pixelsAt = structure(0, rehearsal).size();
    return withPixels(structure(pixelsAt, noise), noise, size, "");
}

} // namespace lumeo::samples
