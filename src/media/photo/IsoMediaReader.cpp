#include "media/photo/IsoMediaReader.h"

#include "media/IsoBoxes.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <string_view>

namespace lumeo {

namespace {

constexpr std::string_view xmpUuid("\xBE\x7A\xCF\xCB\x97\xA9\x42\xE8\x9C\x71\x99\x94\x91\xE3\xAF\xAC", 16);

std::optional<FileRange> find(FileWindow& file, const std::optional<FileRange>& parent,
                              std::string_view type) {
    return parent ? BoxWalk(file, *parent).find(fourCC(type)) : std::nullopt;
}

bool declaresImage(FileWindow& file) {
    constexpr std::array brands{fourCC("heic"), fourCC("heix"), fourCC("heim"), fourCC("heis"),
                                fourCC("hevc"), fourCC("hevx"), fourCC("mif1"), fourCC("mif2"),
                                fourCC("msf1"), fourCC("avif"), fourCC("avis"), fourCC("crx ")};
    const auto box = BoxWalk(file, {0, FileWindow::headSize}).next();
    if (!box || box->type != fourCC("ftyp")) {
        return false;
    }
    FieldReader fields(file, box->content);
    while (!fields.hasFailed()) {
        if (std::find(brands.begin(), brands.end(), fields.code()) != brands.end()) {
            return true;
        }
    }
    return false;
}

/// The items of an image file, described by the boxes in its "meta" box.
class ImageItems {
public:
    ImageItems(FileWindow& file, FileRange meta) : file_(file) {
        FieldReader fields(file, meta);
        fields.skip(4);
        meta_ = fields.rest();
        readInfo();
        readLocations();
    }

    [[nodiscard]] std::optional<FileRange> exif() const { return locate(exifId_); }
    [[nodiscard]] std::optional<FileRange> xmpPacket() const { return locate(xmpId_); }
    std::optional<PixelSize> primarySize();

private:
    using Id = std::uint64_t;
    struct Location {
        Id id = 0;
        FileRange range;
    };

    void readInfo();
    void readLocations();
    [[nodiscard]] std::optional<FileRange> locate(const std::optional<Id>& id) const;
    std::optional<PixelSize> sizeProperty(FileRange properties, std::uint64_t index);

    FileWindow& file_;
    FileRange meta_;
    std::optional<Id> exifId_;
    std::optional<Id> xmpId_;
    std::vector<Location> locations_; ///< only of the two wanted items
};

void ImageItems::readInfo() {
    const auto box = find(file_, meta_, "iinf");
    if (!box) {
        return;
    }
    FieldReader fields(file_, *box);
    const std::uint64_t version = fields.number(1);
    fields.skip(version == 0 ? 5 : 7);
    BoxWalk entries(file_, fields.rest());
    while (const auto entry = entries.next()) {
        FieldReader info(file_, entry->content);
        const std::uint64_t entryVersion = info.number(1);
        info.skip(3);
        const Id id = info.number(entryVersion >= 3 ? 4 : 2);
        info.skip(2);
        const std::uint32_t type = info.code();
        if (type == fourCC("Exif") && !exifId_) {
            exifId_ = id;
        } else if (type == fourCC("mime") && !xmpId_) {
            info.text();
            if (info.text() == "application/rdf+xml") {
                xmpId_ = id;
            }
        }
    }
}

void ImageItems::readLocations() {
    const auto box = find(file_, meta_, "iloc");
    if (!box || (!exifId_ && !xmpId_)) {
        return;
    }
    const auto itemData = find(file_, meta_, "idat");
    FieldReader fields(file_, *box);
    const std::uint64_t version = fields.number(1);
    fields.skip(3);
    const std::uint64_t sizes = fields.number(2);
    const auto sizeAt = [sizes](unsigned shift) { return static_cast<std::size_t>(sizes >> shift & 0xFU); };
    const std::uint64_t count = fields.number(version < 2 ? 2 : 4);
    for (std::uint64_t i = 0; i < std::min<std::uint64_t>(count, mostBoxes) && !fields.hasFailed(); ++i) {
        const Id id = fields.number(version < 2 ? 2 : 4);
        const std::uint64_t method = version == 0 ? 0 : fields.number(2) & 0xFU;
        fields.skip(2);
        const std::uint64_t base = fields.number(sizeAt(4));
        const std::uint64_t extents = fields.number(2);
        for (std::uint64_t extent = 0; extent < extents && !fields.hasFailed(); ++extent) {
            fields.skip(version == 0 ? 0 : sizeAt(0));
            const std::uint64_t offset = base + fields.number(sizeAt(12));
            const std::uint64_t length = fields.number(sizeAt(8));
            const bool isWanted = id == exifId_ || id == xmpId_;
            if (!isWanted || extent > 0 || fields.hasFailed() || method > 1 || (method == 1 && !itemData)) {
                continue;
            }
            locations_.push_back({id, {method == 1 ? itemData->offset + offset : offset, length}});
        }
    }
}

std::optional<FileRange> ImageItems::locate(const std::optional<Id>& id) const {
    const auto found = std::find_if(locations_.begin(), locations_.end(),
                                    [&id](const Location& location) { return location.id == id; });
    return found == locations_.end() ? std::nullopt : std::optional(found->range);
}

std::optional<PixelSize> ImageItems::primarySize() {
    const auto primary = find(file_, meta_, "pitm");
    const auto properties = find(file_, meta_, "iprp");
    const auto list = find(file_, properties, "ipco");
    const auto associations = find(file_, properties, "ipma");
    if (!primary || !list || !associations) {
        return std::nullopt;
    }
    FieldReader primaryFields(file_, *primary);
    const std::uint64_t primaryVersion = primaryFields.number(1);
    primaryFields.skip(3);
    const Id primaryId = primaryFields.number(primaryVersion == 0 ? 2 : 4);

    FieldReader fields(file_, *associations);
    const std::uint64_t version = fields.number(1);
    const bool hasWideIndices = (fields.number(3) & 1U) != 0;
    const std::uint64_t count = fields.number(4);
    for (std::uint64_t i = 0; i < std::min<std::uint64_t>(count, mostBoxes) && !fields.hasFailed(); ++i) {
        const Id id = fields.number(version == 0 ? 2 : 4);
        const std::uint64_t indices = fields.number(1);
        for (std::uint64_t j = 0; j < indices; ++j) {
            const std::uint64_t index =
                fields.number(hasWideIndices ? 2 : 1) & (hasWideIndices ? 0x7FFFU : 0x7FU);
            if (id != primaryId || index == 0) {
                continue;
            }
            if (const auto size = sizeProperty(*list, index)) {
                return size;
            }
        }
    }
    return std::nullopt;
}

std::optional<PixelSize> ImageItems::sizeProperty(FileRange properties, std::uint64_t index) {
    BoxWalk walk(file_, properties);
    for (std::uint64_t i = 1; i < index; ++i) {
        if (!walk.next()) {
            return std::nullopt;
        }
    }
    const auto box = walk.next();
    if (!box || box->type != fourCC("ispe")) {
        return std::nullopt;
    }
    FieldReader fields(file_, box->content);
    fields.skip(4);
    const PixelSize size{fields.code(), fields.code()};
    return size.width > 0 && size.height > 0 ? std::optional(size) : std::nullopt;
}

/// An Exif item starts with a number: the distance from the end of this number to the TIFF structure.
std::optional<FileRange> tiffOfItem(FileWindow& file, FileRange item) {
    FieldReader fields(file, item);
    fields.skip(static_cast<std::size_t>(fields.number(4)));
    return fields.hasFailed() ? std::nullopt : std::optional(fields.rest());
}

bool hasUuid(FileWindow& file, const Box& box, std::string_view uuid) {
    return box.type == fourCC("uuid") && file.view(box.content.offset, uuid.size()) == uuid;
}

FileRange behindUuid(FileRange content) {
    constexpr std::uint64_t uuidSize = 16;
    return behind(content, uuidSize);
}

/// CR3 stores each directory as a separate TIFF structure, in a box that only this maker uses.
void readCr3(FileWindow& file, FileRange movie, IsoMediaContents& contents) {
    constexpr std::string_view cameraUuid("\x85\xC0\xB6\x87\x82\x0F\x11\xE0\x81\x11\xF4\xCE\x46\x2B\x6A\x48",
                                          16);
    BoxWalk boxes(file, movie);
    while (const auto box = boxes.next()) {
        if (!hasUuid(file, *box, cameraUuid)) {
            continue;
        }
        BoxWalk parts(file, behindUuid(box->content));
        while (const auto part = parts.next()) {
            if (part->type == fourCC("CMT1")) {
                contents.exif.push_back({part->content, TiffRoot::image});
            } else if (part->type == fourCC("CMT2")) {
                contents.exif.push_back({part->content, TiffRoot::exif});
            } else if (part->type == fourCC("CMT4")) {
                contents.exif.push_back({part->content, TiffRoot::gps});
            }
        }
    }
}

void readMeta(FileWindow& file, FileRange meta, IsoMediaContents& contents) {
    ImageItems items(file, meta);
    contents.size = items.primarySize();
    contents.xmpPacket = items.xmpPacket();
    if (const auto item = items.exif()) {
        if (const auto tiff = tiffOfItem(file, *item)) {
            contents.exif.push_back({*tiff, TiffRoot::image});
        }
    }
}

} // namespace

std::optional<IsoMediaContents> readIsoMedia(FileWindow& file) {
    if (!declaresImage(file)) {
        return std::nullopt;
    }
    IsoMediaContents contents;
    BoxWalk boxes(file, {0, std::numeric_limits<std::int64_t>::max()});
    while (const auto box = boxes.next()) {
        if (box->type == fourCC("meta")) {
            readMeta(file, box->content, contents);
        } else if (box->type == fourCC("moov")) {
            readCr3(file, box->content, contents);
        } else if (hasUuid(file, *box, xmpUuid)) {
            contents.xmpPacket = behindUuid(box->content);
        }
    }
    return contents;
}

IsoMediaContents readJp2(FileWindow& file) {
    IsoMediaContents contents;
    BoxWalk boxes(file, {0, std::numeric_limits<std::int64_t>::max()});
    while (const auto box = boxes.next()) {
        if (box->type == fourCC("jp2h")) {
            if (const auto header = find(file, box->content, "ihdr")) {
                FieldReader fields(file, *header);
                const std::int64_t height = fields.code();
                contents.size = PixelSize{fields.code(), height};
            }
        } else if (hasUuid(file, *box, "JpgTiffExif->JP2")) {
            contents.exif.push_back({behindUuid(box->content), TiffRoot::image});
        } else if (hasUuid(file, *box, xmpUuid)) {
            contents.xmpPacket = behindUuid(box->content);
        }
    }
    return contents;
}

} // namespace lumeo
