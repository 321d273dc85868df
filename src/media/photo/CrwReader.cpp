#include "media/photo/CrwReader.h"

#include "media/ByteOrder.h"
#include "media/photo/ExifValues.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <string>
#include <string_view>

namespace lumeo {

namespace {

enum Tag : std::uint16_t { // without the bits that tell where the value is
    makeAndModel = 0x080A,
    captureTime = 0x180E,
    imageInfo = 0x1810,
    fullPreview = 0x2007,
    smallPreview = 0x2008,
};

constexpr unsigned deepest = 8;
constexpr unsigned mostHeaps = 64; ///< cameras write five
constexpr unsigned mostEntries = 1'000;
constexpr std::uint64_t entrySize = 10;

class CrwWalk {
public:
    CrwWalk(FileWindow& file, std::endian order) : file_(file), order_(order) {}

    void readHeap(FileRange heap, unsigned depth) {
        if (heap.length < 6 || depth > deepest || ++heaps_ > mostHeaps) {
            return;
        }
        const std::uint64_t directory = number<std::uint32_t>(heap.offset + heap.length - 4);
        if (directory > heap.length - 6) {
            return;
        }
        const std::uint64_t count = number<std::uint16_t>(heap.offset + directory);
        const std::uint64_t most =
            std::min<std::uint64_t>(mostEntries, (heap.length - directory) / entrySize);
        for (std::uint64_t i = 0; i < std::min(count, most); ++i) {
            readEntry(heap, heap.offset + directory + 2 + i * entrySize, depth);
        }
    }

    CrwContents take() && { return std::move(contents_); }

private:
    void readEntry(FileRange heap, std::uint64_t at, unsigned depth) {
        constexpr std::uint16_t placeBits = 0xC000;
        constexpr std::uint16_t inEntry = 0x4000;
        constexpr std::uint16_t kindBits = 0x3800;
        const auto tag = number<std::uint16_t>(at);
        const std::uint64_t length = number<std::uint32_t>(at + 2);
        const std::uint64_t offset = number<std::uint32_t>(at + 6);
        FileRange value{heap.offset + offset, length};
        if ((tag & placeBits) == inEntry) {
            value = {at + 2, 8};
        } else if ((tag & placeBits) != 0 || offset > heap.length || heap.length - offset < length) {
            return;
        }
        const unsigned kind = tag & kindBits;
        if ((kind == 0x2800 || kind == 0x3000) && (tag & placeBits) == 0) {
            readHeap(value, depth + 1);
        } else {
            readValue(static_cast<std::uint16_t>(tag & ~placeBits), value);
        }
    }

    void readValue(std::uint16_t tag, FileRange value) {
        PhotoProperties& properties = contents_.properties;
        if (tag == makeAndModel && !properties.tiff.make) {
            readCamera(value);
        } else if (tag == captureTime && value.length >= 4 && !properties.exif.dateTimeOriginal) {
            properties.exif.dateTimeOriginal = photoDate(number<std::uint32_t>(value.offset));
        } else if (tag == imageInfo && value.length >= 8 && !properties.pixelWidth) {
            const auto width = number<std::uint32_t>(value.offset);
            const auto height = number<std::uint32_t>(value.offset + 4);
            if (width > 0 && height > 0) {
                properties.pixelWidth = width;
                properties.pixelHeight = height;
            }
        } else if (tag == fullPreview || (tag == smallPreview && !contents_.embeddedJpeg)) {
            contents_.embeddedJpeg = value;
        }
    }

    /// Two texts, one after the other.
    void readCamera(FileRange value) {
        constexpr std::uint64_t longest = 256;
        const auto bytes =
            file_.view(value.offset, static_cast<std::size_t>(std::min(longest, value.length)));
        const std::size_t end = bytes ? bytes->find('\0') : std::string_view::npos;
        if (end == std::string_view::npos) {
            return;
        }
        const std::string_view model = bytes->substr(end + 1);
        contents_.properties.tiff.make = std::string(bytes->substr(0, end));
        contents_.properties.tiff.model = std::string(model.substr(0, model.find('\0')));
    }

    /// 0 at the end of the file.
    template<class Number>
    Number number(std::uint64_t at) {
        const auto bytes = file_.view(at, sizeof(Number));
        return bytes ? numberAt<Number>(*bytes, 0, order_) : Number{0};
    }

    FileWindow& file_;
    std::endian order_;
    unsigned heaps_ = 0;
    CrwContents contents_;
};

} // namespace

CrwContents readCrw(FileWindow& file) {
    const auto header = file.view(0, 6);
    if (!header || !(header->starts_with("II") || header->starts_with("MM"))) {
        return {};
    }
    const std::endian order = header->front() == 'I' ? std::endian::little : std::endian::big;
    const std::uint64_t start = numberAt<std::uint32_t>(*header, 2, order);
    CrwWalk walk(file, order);
    if (start < file.size()) {
        walk.readHeap({start, file.size() - start}, 0);
    }
    return std::move(walk).take();
}

} // namespace lumeo
