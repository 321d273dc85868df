#include "samples/TinyPhotos.h"

#include "samples/TinyMovies.h"

#include <algorithm>
#include <cmath>

#include <brotli/encode.h>
#include <zlib.h>

namespace lumeo {

namespace {

constexpr std::uint16_t exifPointer = 0x8769;
constexpr std::uint16_t gpsPointer = 0x8825;

using Entries = std::vector<TiffMaker::Entry>;

void addText(Entries& entries, const TiffMaker& tiff, std::uint16_t tag,
             const std::optional<std::string>& text) {
    if (text) {
        entries.push_back(tiff.text(tag, *text));
    }
}

void addNumber(Entries& entries, const TiffMaker& tiff, std::uint16_t tag,
               const std::optional<std::uint32_t>& number) {
    if (number) {
        entries.push_back(tiff.number32(tag, *number));
    }
}

Entries exifEntries(const TiffMaker& tiff, const TinyPhoto& photo) {
    Entries entries;
    addText(entries, tiff, 0x9003, photo.dateTimeOriginal);
    addText(entries, tiff, 0x9004, photo.dateTimeDigitized);
    if (photo.makerNote) {
        entries.push_back({0x927C, 7, static_cast<std::uint32_t>(photo.makerNote->size()), *photo.makerNote});
    }
    addNumber(entries, tiff, 0xA002, photo.pixelXDimension);
    addNumber(entries, tiff, 0xA003, photo.pixelYDimension);
    addText(entries, tiff, 0xA434, photo.lensModel);
    return entries;
}

Entries gpsEntries(const TiffMaker& tiff, const TinyPhoto& photo) {
    if (!photo.latitude || !photo.longitude) {
        return {};
    }
    return {tiff.text(1, *photo.latitude < 0 ? "S" : "N"), tiff.degrees(2, std::abs(*photo.latitude)),
            tiff.text(3, *photo.longitude < 0 ? "W" : "E"), tiff.degrees(4, std::abs(*photo.longitude))};
}

/// The whole structure: the first directory with `main` and the camera's facts, then the Exif and GPS
/// directories. Empty when the photo has no facts.
std::string structure(const TiffMaker& tiff, const TinyPhoto& photo, Entries main) {
    addText(main, tiff, 0x010F, photo.make);
    addText(main, tiff, 0x0110, photo.model);
    addText(main, tiff, 0x0132, photo.dateTime);
    const Entries exif = exifEntries(tiff, photo);
    const Entries gps = gpsEntries(tiff, photo);
    if (main.empty() && exif.empty() && gps.empty()) {
        return {};
    }
    // The offsets do not change a directory's length, so a first pass with zeros shows where each directory
    // goes.
    const auto layOut = [&](std::uint32_t exifAt, std::uint32_t gpsAt) {
        Entries entries = main;
        if (!exif.empty()) {
            entries.push_back(tiff.number32(exifPointer, exifAt));
        }
        if (!gps.empty()) {
            entries.push_back(tiff.number32(gpsPointer, gpsAt));
        }
        return tiff.directory(entries, tiff.header().size());
    };
    const std::size_t exifAt = tiff.header().size() + layOut(0, 0).size();
    const std::string exifBytes = exif.empty() ? "" : tiff.directory(exif, exifAt);
    const std::size_t gpsAt = exifAt + exifBytes.size();
    const std::string gpsBytes = gps.empty() ? "" : tiff.directory(gps, gpsAt);
    return tiff.header() + layOut(static_cast<std::uint32_t>(exifAt), static_cast<std::uint32_t>(gpsAt)) +
           exifBytes + gpsBytes;
}

/// The tables use one bit for "no difference" and one bit for "end of block", so a gray block takes two bits.
std::string grayScan(const TinyPhoto& photo) {
    const std::string oneCode = std::string("\x01", 1) + std::string(15, '\0') + std::string(1, '\0');
    const std::string frame =
        std::string("\x08", 1) + bigEndianBytes(static_cast<std::uint64_t>(photo.height), 2) +
        bigEndianBytes(static_cast<std::uint64_t>(photo.width), 2) + std::string("\x01\x01\x11\x00", 4);
    const auto blocks = static_cast<std::size_t>((photo.width + 7) / 8 * ((photo.height + 7) / 8));
    std::string bits(blocks / 4, '\0');
    if (blocks % 4 != 0) {
        bits += static_cast<char>(0xFFU >> (blocks % 4 * 2));
    }
    return jpegSegment(0xDB, std::string(1, '\0') + std::string(64, '\x01')) + jpegSegment(0xC0, frame) +
           jpegSegment(0xC4, std::string(1, '\0') + oneCode) +
           jpegSegment(0xC4, std::string("\x10", 1) + oneCode) +
           jpegSegment(0xDA, std::string("\x01\x01\x00\x00\x3F\x00", 6)) + bits;
}

} // namespace

std::string jpegSegment(unsigned char marker, const std::string& content) {
    return std::string{'\xFF', static_cast<char>(marker)} + bigEndianBytes(content.size() + 2, 2) + content;
}

TiffMaker::Entry TiffMaker::text(std::uint16_t tag, const std::string& value) const {
    return {tag, 2, static_cast<std::uint32_t>(value.size() + 1), value + '\0'};
}

TiffMaker::Entry TiffMaker::number16(std::uint16_t tag, std::uint16_t value) const {
    return {tag, 3, 1, u16(value)};
}

TiffMaker::Entry TiffMaker::number32(std::uint16_t tag, std::uint32_t value) const {
    return {tag, 4, 1, u32(value)};
}

TiffMaker::Entry TiffMaker::degrees(std::uint16_t tag, double unsignedDegrees) const {
    constexpr std::uint32_t secondFraction = 10'000;
    const auto total = static_cast<std::uint64_t>(std::llround(unsignedDegrees * 3'600 * secondFraction));
    const auto whole = static_cast<std::uint32_t>(total / (std::uint64_t{3'600} * secondFraction));
    const auto minutes = static_cast<std::uint32_t>(total / (std::uint64_t{60} * secondFraction) % 60);
    const auto seconds = static_cast<std::uint32_t>(total % (std::uint64_t{60} * secondFraction));
    return {tag, 5, 3, u32(whole) + u32(1) + u32(minutes) + u32(1) + u32(seconds) + u32(secondFraction)};
}

std::string TiffMaker::u16(std::uint16_t value) const {
    return littleEndian_ ? littleEndianBytes(value, 2) : bigEndianBytes(value, 2);
}

std::string TiffMaker::u32(std::uint32_t value) const {
    return littleEndian_ ? littleEndianBytes(value, 4) : bigEndianBytes(value, 4);
}

std::string TiffMaker::directory(std::vector<Entry> entries, std::size_t offset, std::uint32_t next) const {
    std::stable_sort(entries.begin(), entries.end(),
                     [](const Entry& a, const Entry& b) { return a.tag < b.tag; });
    std::string table = u16(static_cast<std::uint16_t>(entries.size()));
    const std::size_t valuesAt = offset + 2 + entries.size() * 12 + 4;
    std::string values;
    for (const Entry& entry : entries) {
        table += u16(entry.tag) + u16(entry.type) + u32(entry.count);
        if (entry.value.size() <= 4) {
            table += entry.value + std::string(4 - entry.value.size(), '\0');
            continue;
        }
        table += u32(static_cast<std::uint32_t>(valuesAt + values.size()));
        values += entry.value;
        if (values.size() % 2 != 0) {
            values += '\0';
        }
    }
    return table + u32(next) + values;
}

std::string TiffMaker::header() const {
    return (littleEndian_ ? "II" : "MM") + u16(42) + u32(8);
}

std::string tinyJpeg(const TinyPhoto& photo) {
    std::string bytes = "\xFF\xD8";
    if (const std::string exif = structure(TiffMaker(), photo, {}); !exif.empty()) {
        bytes += jpegSegment(0xE1, std::string("Exif\0\0", 6) + exif);
    }
    if (photo.xmpPacket) {
        bytes += jpegSegment(0xE1, std::string("http://ns.adobe.com/xap/1.0/") + '\0' + *photo.xmpPacket);
    }
    if (photo.photoshop) {
        bytes += jpegSegment(0xED, std::string("Photoshop 3.0") + '\0' + *photo.photoshop);
    }
    return bytes + grayScan(photo) + "\xFF\xD9";
}

std::string tinyTiff(const TinyPhoto& photo) {
    const TiffMaker tiff;
    const auto width = static_cast<std::uint32_t>(photo.width);
    const auto height = static_cast<std::uint32_t>(photo.height);
    const auto withPixelsAt = [&](std::uint32_t pixelsAt) {
        Entries main{tiff.number32(0x00FE, 0),
                     tiff.number32(0x0100, width),
                     tiff.number32(0x0101, height),
                     tiff.number16(0x0102, 8),
                     tiff.number16(0x0103, 1),
                     tiff.number16(0x0106, 1),
                     tiff.number32(0x0111, pixelsAt),
                     tiff.number32(0x0116, height),
                     tiff.number32(0x0117, width * height)};
        if (photo.xmpPacket) {
            main.push_back(
                {0x02BC, 1, static_cast<std::uint32_t>(photo.xmpPacket->size()), *photo.xmpPacket});
        }
        if (photo.photoshop) {
            main.push_back(
                {0x8649, 1, static_cast<std::uint32_t>(photo.photoshop->size()), *photo.photoshop});
        }
        return structure(tiff, photo, main);
    };
    const auto pixelsAt = static_cast<std::uint32_t>(withPixelsAt(0).size());
    return withPixelsAt(pixelsAt) + std::string(static_cast<std::size_t>(width) * height, '\x80');
}

std::string tinyXmp(std::string_view attributes) {
    return R"(<?xpacket begin="" id="W5M0MpCehiHzreSzNTczkc9d"?>)"
           R"(<x:xmpmeta xmlns:x="adobe:ns:meta/"><rdf:RDF)"
           R"( xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#"><rdf:Description rdf:about="")"
           R"( xmlns:exif="http://ns.adobe.com/exif/1.0/" xmlns:xmp="http://ns.adobe.com/xap/1.0/")"
           R"( xmlns:tiff="http://ns.adobe.com/tiff/1.0/" xmlns:aux="http://ns.adobe.com/exif/1.0/aux/")"
           R"( xmlns:photoshop="http://ns.adobe.com/photoshop/1.0/")"
           R"( xmlns:exifEX="http://cipa.jp/exif/1.0/" )" +
           std::string(attributes) + R"(/></rdf:RDF></x:xmpmeta><?xpacket end="w"?>)";
}

std::string photoshopResource(int number, const std::string& content) {
    const std::string name("\3abc", 4);
    return "8BIM" + bigEndianBytes(static_cast<std::uint64_t>(number), 2) + name +
           bigEndianBytes(content.size(), 4) + content + std::string(content.size() % 2, '\0');
}

std::string pressFacts(const std::string& day, const std::string& time) {
    const auto fact = [](char number, const std::string& value) {
        return "\x1C\2" + std::string(1, number) + bigEndianBytes(value.size(), 2) + value;
    };
    return photoshopResource(0x0404, fact('\5', "a title") + fact('\x37', day) +
                                         (time.empty() ? "" : fact('\x3C', time)));
}

std::string tinyPsd(const std::string& resources) {
    return "8BPS" + bigEndianBytes(1, 2) + std::string(6, '\0') + bigEndianBytes(3, 2) +
           bigEndianBytes(8, 4) + bigEndianBytes(16, 4) + bigEndianBytes(8, 2) + bigEndianBytes(3, 2) +
           bigEndianBytes(2, 4) + "ab" + bigEndianBytes(resources.size(), 4) + resources;
}

std::string tinyGif(const std::string& xmpPacket, int partsBefore) {
    std::string trailer = "\1";
    for (int byte = 0xFF; byte >= 0; --byte) {
        trailer += static_cast<char>(byte);
    }
    const std::string colours("\0\0\0\xFF\xFF\xFF", 6);
    std::string pixels;
    for (int i = 0; i < partsBefore; ++i) {
        pixels += '\xFF' + std::string(255, '\x44');
    }
    const std::string image = "," + std::string(8, '\0') + "\x80" + colours + "\2" + pixels + '\0';
    return "GIF89a" + littleEndianBytes(16, 2) + littleEndianBytes(8, 2) + "\x80" + std::string(2, '\0') +
           colours + "!\xFE\4note" + '\0' + (partsBefore > 0 ? image : "") + "!\xFF\x0BXMP DataXMP" +
           xmpPacket + trailer + '\0' + ";";
}

std::string tinyExif(const TinyPhoto& photo) {
    return structure(TiffMaker(), photo, {});
}

std::string tinyPng(const std::string& chunks) {
    return "\x89PNG\r\n\x1A\n" + chunks;
}

std::string pngChunk(const std::string& type, const std::string& content) {
    return bigEndianBytes(content.size(), 4) + type + content + bigEndianBytes(0, 4);
}

std::string pngProfile(const std::string& bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    constexpr std::size_t bytesInALine = 36;
    std::string text = "\nexif\n" + std::to_string(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        text += i % bytesInALine == 0 ? "\n" : "";
        text += digits[byte >> 4U];
        text += digits[byte & 15U];
    }
    return text;
}

std::string deflated(const std::string& text) {
    uLongf size = compressBound(text.size());
    std::string bytes(size, '\0');
    compress(reinterpret_cast<Bytef*>(bytes.data()), &size, reinterpret_cast<const Bytef*>(text.data()),
             text.size());
    return bytes.substr(0, size);
}

std::string brotliBox(const std::string& type, const std::string& content) {
    std::size_t size = BrotliEncoderMaxCompressedSize(content.size());
    std::string bytes(size, '\0');
    BrotliEncoderCompress(BROTLI_DEFAULT_QUALITY, BROTLI_DEFAULT_WINDOW, BROTLI_DEFAULT_MODE, content.size(),
                          reinterpret_cast<const std::uint8_t*>(content.data()), &size,
                          reinterpret_cast<std::uint8_t*>(bytes.data()));
    return movieBox("brob", type + bytes.substr(0, size));
}

} // namespace lumeo
