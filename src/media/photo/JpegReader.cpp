#include "media/photo/JpegReader.h"

#include "media/ByteOrder.h"

#include <string_view>

namespace lumeo {

namespace {

constexpr std::string_view startOfImage = "\xFF\xD8\xFF";
constexpr std::string_view startOfMetadata = "\xFF\x01"
                                             "Exiv2"; ///< the segments of a JPEG without the image
constexpr std::string_view exifName("Exif\0\0", 6);
constexpr std::string_view xmpName("http://ns.adobe.com/xap/1.0/\0", 29);
constexpr std::string_view photoshopName("Photoshop 3.0\0", 14);
constexpr std::uint64_t mostPadding = 64 * 1024; ///< stray bytes between segments, in total

enum Marker : unsigned {
    fill = 0xFF,
    startOfFrame = 0xC0, ///< up to 0xCF; three of these mean something else
    huffmanTables = 0xC4,
    jpegExtensions = 0xC8,
    arithmeticCoding = 0xCC,
    firstRestart = 0xD0,
    lastStandalone = 0xD8,
    endOfImage = 0xD9,
    startOfScan = 0xDA,
    app1 = 0xE1,
    app13 = 0xED,
    temporary = 0x01,
};

bool isFrame(unsigned marker) {
    return marker >= startOfFrame && marker <= 0xCF && marker != huffmanTables && marker != jpegExtensions &&
           marker != arithmeticCoding;
}

bool isStandalone(unsigned marker) {
    return marker == temporary || (marker >= firstRestart && marker <= lastStandalone);
}

void readFrame(FileWindow& file, std::uint64_t offset, JpegContents& contents) {
    const auto frame = file.view(offset, 5);
    if (!frame) {
        return;
    }
    const auto height = numberAt<std::uint16_t>(*frame, 1, std::endian::big);
    const auto width = numberAt<std::uint16_t>(*frame, 3, std::endian::big);
    if (height != 0 && width != 0 && !contents.pixelWidth) {
        contents.pixelWidth = width;
        contents.pixelHeight = height;
    }
}

/// Takes the segment's content if it starts with `name` and none was found earlier.
void readNamed(FileWindow& file, FileRange segment, std::string_view name, std::optional<FileRange>& found) {
    if (found || segment.length < name.size()) {
        return;
    }
    if (file.view(segment.offset, name.size()) == name) {
        found = FileRange{segment.offset + name.size(), segment.length - name.size()};
    }
}

} // namespace

std::optional<JpegContents> readJpeg(FileWindow& file, std::uint64_t offset) {
    if (file.view(offset, startOfImage.size()) != startOfImage &&
        file.view(offset, startOfMetadata.size()) != startOfMetadata) {
        return std::nullopt;
    }
    JpegContents contents;
    std::uint64_t at = offset + 2;
    std::uint64_t padding = 0;
    while (padding < mostPadding) {
        const auto head = file.view(at, 2);
        if (!head) {
            break;
        }
        const unsigned marker = static_cast<unsigned char>(head->back());
        if (head->front() != '\xFF' || marker == fill || marker == 0) {
            ++at;
            ++padding;
            continue;
        }
        at += 2;
        if (isStandalone(marker)) {
            continue;
        }
        const auto lengthBytes = file.view(at, 2);
        if (marker == endOfImage || marker == startOfScan || !lengthBytes) {
            break;
        }
        const auto length = numberAt<std::uint16_t>(*lengthBytes, 0, std::endian::big);
        if (length < 2) {
            break;
        }
        const FileRange segment{at + 2, length - 2U};
        if (isFrame(marker)) {
            readFrame(file, segment.offset, contents);
        } else if (marker == app1) {
            readNamed(file, segment, exifName, contents.exif);
            readNamed(file, segment, xmpName, contents.xmpPacket);
        } else if (marker == app13) {
            readNamed(file, segment, photoshopName, contents.photoshop);
        }
        at += length;
    }
    return contents;
}

} // namespace lumeo
