#include "samples/MakerNotes.h"

#include <span>
#include <vector>

namespace lumeo::samples {
namespace {

enum Type : std::uint16_t {
    byte = 1,
    ascii = 2,
    u16 = 3,
    u32 = 4,
    ratio = 5,
    blob = 7,
    s16 = 8,
    s32 = 9,
    sRatio = 10
};

struct Tag {
    std::uint16_t tag;
    Type type;
    std::uint32_t count;
};

constexpr Tag canonTags[] = {
    {0x0001, u16, 49},   {0x0002, u16, 4},    {0x0003, u16, 4},     {0x0004, u16, 34},  {0x0006, ascii, 32},
    {0x0007, ascii, 24}, {0x0009, ascii, 32}, {0x000d, blob, 1536}, {0x0010, u32, 1},   {0x0013, u16, 4},
    {0x0019, u16, 1},    {0x0026, u16, 265},  {0x0035, u32, 4},     {0x0038, blob, 76}, {0x0093, u16, 30},
    {0x0095, ascii, 70}, {0x0096, ascii, 16}, {0x0097, blob, 1024}, {0x0098, u16, 4},   {0x0099, u32, 93},
    {0x009a, u32, 5},    {0x00a0, u16, 14},   {0x00aa, u16, 6},     {0x00b4, u16, 1},   {0x00d0, u32, 1},
    {0x00e0, u16, 17},   {0x4001, u16, 1312}, {0x4008, u16, 3},     {0x4009, u16, 3},   {0x4010, ascii, 32},
    {0x4011, blob, 252}, {0x4013, u32, 11},   {0x4015, blob, 456},  {0x4016, u32, 8},   {0x4018, u32, 14},
    {0x4019, blob, 30},  {0x4020, u32, 8},    {0x4021, u32, 5},     {0x4025, u32, 9},   {0x4027, u32, 6},
};

constexpr Tag nikonTags[] = {
    {0x0001, blob, 4},    {0x0002, u16, 2},     {0x0004, ascii, 8},  {0x0005, ascii, 13},
    {0x0007, ascii, 7},   {0x0008, ascii, 13},  {0x0009, ascii, 20}, {0x000b, s16, 2},
    {0x000c, ratio, 4},   {0x000d, blob, 4},    {0x000e, blob, 4},   {0x0012, blob, 4},
    {0x0013, blob, 4},    {0x0016, u16, 4},     {0x0017, blob, 4},   {0x0018, blob, 4},
    {0x0019, sRatio, 1},  {0x001b, u16, 7},     {0x001c, blob, 3},   {0x001d, ascii, 8},
    {0x001e, u16, 1},     {0x001f, blob, 8},    {0x0022, u16, 1},    {0x0023, blob, 58},
    {0x0024, blob, 4},    {0x0025, blob, 14},   {0x002a, u16, 1},    {0x002b, blob, 16},
    {0x002c, blob, 1026}, {0x0032, blob, 20},   {0x0035, blob, 12},  {0x0083, byte, 1},
    {0x0084, ratio, 4},   {0x0087, byte, 1},    {0x0089, u16, 1},    {0x008a, u16, 1},
    {0x008b, blob, 4},    {0x0091, blob, 6318}, {0x0095, ascii, 5},  {0x0097, blob, 1302},
    {0x0098, blob, 33},   {0x009e, u16, 10},    {0x00a2, u32, 1},    {0x00a3, byte, 1},
    {0x00a7, u32, 1},     {0x00a8, blob, 21},   {0x00b0, blob, 16},  {0x00b1, u16, 1},
    {0x00b6, blob, 8},    {0x00b7, blob, 30},   {0x00b8, blob, 172}, {0x00b9, blob, 4},
    {0x00bb, blob, 8},
};

constexpr Tag sonyTags[] = {
    {0x0102, u32, 1},     {0x0104, sRatio, 1},  {0x0105, u32, 1},     {0x0112, u32, 1},
    {0x0115, u32, 1},     {0x1000, ascii, 17},  {0x1001, u32, 1},     {0x2002, u32, 1},
    {0x2004, s32, 1},     {0x2005, s32, 1},     {0x2006, s32, 1},     {0x2008, u32, 1},
    {0x2009, u16, 1},     {0x200a, u32, 1},     {0x200b, u32, 1},     {0x200d, ratio, 1},
    {0x200e, u16, 1},     {0x200f, u32, 1},     {0x2010, blob, 7412}, {0x2011, u32, 1},
    {0x2012, u32, 1},     {0x2013, u32, 1},     {0x2014, s32, 2},     {0x2016, u16, 1},
    {0x2017, u16, 1},     {0x201b, byte, 1},    {0x201c, byte, 1},    {0x201d, u16, 2},
    {0x201e, byte, 1},    {0x2020, blob, 10},   {0x2021, byte, 1},    {0x2023, u32, 1},
    {0x2026, s32, 2},     {0x2027, u16, 4},     {0x2028, u16, 2},     {0x2029, u16, 4},
    {0x202a, blob, 2764}, {0x202b, byte, 1},    {0x202c, u16, 1},     {0x202d, s32, 1},
    {0x202e, u16, 2},     {0x202f, blob, 16},   {0x3000, blob, 368},  {0x9050, blob, 944},
    {0x9400, blob, 812},  {0x9401, blob, 540},  {0x9402, blob, 816},  {0x9403, blob, 1000},
    {0x9404, blob, 612},  {0x9405, blob, 2048}, {0x9406, blob, 604},  {0x9407, blob, 1352},
    {0x9408, blob, 1256}, {0x940a, blob, 808},  {0x940c, blob, 844},  {0xb000, byte, 4},
    {0xb001, u16, 1},     {0xb020, ascii, 16},  {0xb021, u32, 1},     {0xb022, u32, 1},
    {0xb023, u32, 1},     {0xb024, u32, 1},     {0xb025, u32, 1},     {0xb026, u32, 1},
    {0xb027, u32, 1},     {0xb029, u32, 1},     {0xb02a, byte, 8},    {0xb02b, u32, 2},
};

constexpr Tag iphoneTags[] = {
    {0x0001, s32, 1}, {0x0002, blob, 558}, {0x0003, blob, 104}, {0x0004, s32, 1},    {0x0005, s32, 1},
    {0x0006, s32, 1}, {0x0007, s32, 1},    {0x0008, sRatio, 3}, {0x000c, sRatio, 2}, {0x000d, s32, 1},
    {0x000e, s32, 1}, {0x0010, s32, 1},    {0x0011, ascii, 37}, {0x0014, s32, 1},    {0x0017, s32, 1},
    {0x0019, s32, 1}, {0x001a, ascii, 6},  {0x001f, s32, 1},    {0x0020, ascii, 37}, {0x0021, sRatio, 1},
    {0x0023, s32, 2}, {0x0025, s32, 1},    {0x0026, s32, 1},    {0x0027, sRatio, 1}, {0x002b, ascii, 37},
    {0x002d, s32, 1}, {0x002e, s32, 1},    {0x002f, s32, 1},    {0x0030, sRatio, 1}, {0x0036, s32, 1},
    {0x003a, s32, 1}, {0x003c, s32, 1},    {0x0041, s32, 1},    {0x004a, s32, 1},
};

constexpr Tag galaxyTags[] = {
    {0x0001, blob, 4}, {0x0002, u32, 1}, {0x000c, u32, 1}, {0x0010, blob, 4},
    {0x0040, u32, 1},  {0x0050, u32, 1}, {0x0100, u16, 1},
};

std::string value(const TiffMaker& tiff, const Tag& tag, Noise& noise) {
    std::string bytes;
    switch (tag.type) {
    case ascii:
        return noise.letters(tag.count - 1) + '\0';
    case byte:
    case blob:
        return noise.bytes(tag.count);
    case u16:
    case s16:
        for (std::uint32_t i = 0; i < tag.count; ++i) {
            bytes += tiff.u16(static_cast<std::uint16_t>(noise.between(0, 400)));
        }
        return bytes;
    case u32:
    case s32:
        for (std::uint32_t i = 0; i < tag.count; ++i) {
            bytes += tiff.u32(static_cast<std::uint32_t>(noise.between(0, 100)));
        }
        return bytes;
    case ratio:
    case sRatio:
        for (std::uint32_t i = 0; i < tag.count; ++i) {
            bytes += tiff.u32(static_cast<std::uint32_t>(noise.between(1, 10'000))) + tiff.u32(100);
        }
        return bytes;
    }
    return bytes;
}

using Entries = std::vector<TiffMaker::Entry>;

Entries entriesOf(const TiffMaker& tiff, std::span<const Tag> tags, Noise& noise) {
    Entries entries;
    for (const Tag& tag : tags) {
        entries.push_back({tag.tag, tag.type, tag.count, value(tiff, tag, noise)});
    }
    return entries;
}

/// Canon's tables of numbers start with their own length in bytes. Readers skip a table that does not.
Entries canonEntries(const TiffMaker& tiff, Noise& noise) {
    Entries entries = entriesOf(tiff, canonTags, noise);
    for (TiffMaker::Entry& entry : entries) {
        const bool isTable = (entry.type == u16 || entry.type == u32) && entry.value.size() > 8;
        if (isTable) {
            const auto length = static_cast<std::uint32_t>(entry.value.size());
            const std::string text =
                entry.type == u16 ? tiff.u16(static_cast<std::uint16_t>(length)) : tiff.u32(length);
            entry.value.replace(0, text.size(), text);
        }
    }
    return entries;
}

} // namespace

std::string makerNote(Camera camera, const TiffMaker& tiff, std::size_t offset, Noise noise) {
    switch (camera) {
    case Camera::canon:
        return tiff.directory(canonEntries(tiff, noise), offset);
    case Camera::nikon: // a whole structure of its own; offsets count from its own header
        return std::string("Nikon\0\2\x10\0\0", 10) + tiff.header() +
               tiff.directory(entriesOf(tiff, nikonTags, noise), tiff.header().size());
    case Camera::sony: {
        const std::string label("SONY DSC \0\0\0", 12);
        return label + tiff.directory(entriesOf(tiff, sonyTags, noise), offset + label.size());
    }
    case Camera::iphone: { // always in this byte order; offsets count from the start of the note
        const std::string label("Apple iOS\0\0\1MM", 14);
        const TiffMaker bigEndian(false);
        return label + bigEndian.directory(entriesOf(bigEndian, iphoneTags, noise), label.size());
    }
    case Camera::galaxy:
        break;
    }
    return tiff.directory(entriesOf(tiff, galaxyTags, noise), 0);
}

} // namespace lumeo::samples
