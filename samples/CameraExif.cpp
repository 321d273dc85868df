#include "samples/CameraExif.h"

#include "samples/MakerNotes.h"

#include <ctime>
#include <iomanip>
#include <sstream>
#include <utility>
#include <vector>

namespace lumeo::samples {
namespace {

using Entry = TiffMaker::Entry;
using Entries = std::vector<Entry>;

struct CameraFacts {
    const char* make;
    const char* model;
    const char* lens;
    const char* software;
    bool littleEndian;
    std::size_t thumbnailSize; ///< bytes; 0 for none
};

CameraFacts factsOf(Camera camera) {
    switch (camera) {
    case Camera::canon:
        return {"Canon", "Canon EOS 6D", "EF24-105mm f/4L IS USM", "Firmware 1.1.6", true, 11'800};
    case Camera::nikon:
        return {"NIKON CORPORATION", "NIKON D750", "24.0-120.0 mm f/4.0", "Ver.1.10 ", true, 9'600};
    case Camera::sony:
        return {"SONY", "ILCE-7M3", "FE 28-70mm F3.5-5.6 OSS", "ILCE-7M3 v3.01", true, 7'900};
    case Camera::iphone:
        return {"Apple", "iPhone 12", "iPhone 12 back dual wide camera 4.2mm f/1.6", "14.4.2", false, 0};
    case Camera::galaxy:
        break;
    }
    return {"samsung", "SM-G973F", "Samsung S5K2L4", "G973FXXU9EUCA", true, 24'300};
}

/// Lays out directories one after the other. Each directory gets the offsets of the others.
class Layout {
public:
    Layout(const Shot& shot, Noise& noise, Entries mainEntries)
        : shot_(shot),
          noise_(noise),
          facts_(factsOf(shot.camera)),
          tiff_(facts_.littleEndian),
          noteNoise_(noise.next()),
          thumbnail_(thumbnail()),
          mainEntries_(std::move(mainEntries)) {}

    std::string bytes() {
        // The offsets do not change a directory's length, so the first pass shows where each directory goes.
        const std::size_t exifAt = 8 + mainDirectory(0, 0, 0).size();
        const std::string exif = exifDirectory(exifAt);
        const std::size_t gpsAt = exifAt + exif.size();
        const std::string gps = shot_.hasPosition ? tiff_.directory(gpsEntries(), gpsAt) : "";
        const std::size_t previewAt = gpsAt + gps.size();
        const std::string preview = thumbnail_.empty() ? "" : previewDirectory(previewAt);
        return tiff_.header() +
               mainDirectory(exifAt, shot_.hasPosition ? gpsAt : 0, thumbnail_.empty() ? 0 : previewAt) +
               exif + gps + preview + thumbnail_;
    }

private:
    [[nodiscard]] Entry fraction(std::uint16_t tag, std::uint32_t numerator,
                                 std::uint32_t denominator) const {
        return {tag, 5, 1, tiff_.u32(numerator) + tiff_.u32(denominator)};
    }

    std::string thumbnail() {
        if (facts_.thumbnailSize == 0) {
            return {};
        }
        return "\xFF\xD8" + noise_.pixels(facts_.thumbnailSize - 4) + "\xFF\xD9";
    }

    std::string mainDirectory(std::size_t exifAt, std::size_t gpsAt, std::size_t previewAt) {
        Entries entries = mainEntries_;
        entries.push_back(tiff_.text(0x010F, facts_.make));
        entries.push_back(tiff_.text(0x0110, facts_.model));
        entries.push_back(tiff_.number16(0x0112, 1));
        entries.push_back(fraction(0x011A, 72, 1));
        entries.push_back(fraction(0x011B, 72, 1));
        entries.push_back(tiff_.number16(0x0128, 2));
        entries.push_back(tiff_.text(0x0131, facts_.software));
        entries.push_back(tiff_.text(0x0132, cameraTime(shot_)));
        entries.push_back(tiff_.number16(0x0213, 1));
        entries.push_back(tiff_.number32(0x8769, static_cast<std::uint32_t>(exifAt)));
        if (shot_.hasPosition) {
            entries.push_back(tiff_.number32(0x8825, static_cast<std::uint32_t>(gpsAt)));
        }
        return tiff_.directory(std::move(entries), 8, static_cast<std::uint32_t>(previewAt));
    }

    std::string exifDirectory(std::size_t offset) {
        const Entries entries = exifEntries();
        const auto withNote = [&](const std::string& note) {
            Entries all = entries;
            all.push_back({0x927C, 7, static_cast<std::uint32_t>(note.size()), note});
            return tiff_.directory(std::move(all), offset);
        };
        const std::string draft = makerNote(shot_.camera, tiff_, 0, noteNoise_);
        const std::size_t noteAt = offset + withNote(draft).find(draft);
        return withNote(makerNote(shot_.camera, tiff_, noteAt, noteNoise_));
    }

    Entries exifEntries() {
        return {
            fraction(0x829A, 1, static_cast<std::uint32_t>(noise_.between(30, 2'000))),
            fraction(0x829D, static_cast<std::uint32_t>(noise_.between(14, 220)), 10),
            tiff_.number16(0x8822, 2),
            tiff_.number16(0x8827, static_cast<std::uint16_t>(100 << noise_.between(0, 6))),
            {0x9000, 7, 4, "0230"},
            tiff_.text(0x9003, cameraTime(shot_)),
            tiff_.text(0x9004, cameraTime(shot_)),
            tiff_.text(0x9010, "+02:00"),
            {0x9101, 7, 4, std::string("\1\2\3\0", 4)},
            fraction(0x9201, static_cast<std::uint32_t>(noise_.between(5, 11)), 1),
            fraction(0x9202, static_cast<std::uint32_t>(noise_.between(20, 70)), 10),
            fraction(0x9204, 0, 1),
            tiff_.number16(0x9207, 5),
            tiff_.number16(0x9209, 16),
            fraction(0x920A, static_cast<std::uint32_t>(noise_.between(24, 200)), 1),
            {0x9286, 7, 264, std::string(264, '\0')},
            tiff_.text(0x9290, noise_.letters(2)),
            tiff_.text(0x9291, "42"),
            tiff_.text(0x9292, "42"),
            {0xA000, 7, 4, "0100"},
            tiff_.number16(0xA001, 1),
            tiff_.number32(0xA002, static_cast<std::uint32_t>(shot_.width)),
            tiff_.number32(0xA003, static_cast<std::uint32_t>(shot_.height)),
            tiff_.number16(0xA401, 0),
            tiff_.number16(0xA402, 0),
            tiff_.number16(0xA403, 0),
            tiff_.number16(0xA406, 0),
            tiff_.text(0xA431, noise_.letters(12)),
            {0xA432, 5, 4,
             tiff_.u32(24) + tiff_.u32(1) + tiff_.u32(105) + tiff_.u32(1) + tiff_.u32(4) + tiff_.u32(1) +
                 tiff_.u32(4) + tiff_.u32(1)},
            tiff_.text(0xA434, facts_.lens),
        };
    }

    Entries gpsEntries() {
        const auto degrees = [&](std::uint16_t tag, std::int64_t most) {
            return tiff_.degrees(tag, static_cast<double>(noise_.between(0, most * 10'000)) / 10'000);
        };
        return {{0, 1, 4, std::string("\2\3\0\0", 4)},
                tiff_.text(1, noise_.oneIn(5) ? "S" : "N"),
                degrees(2, 60),
                tiff_.text(3, noise_.oneIn(2) ? "W" : "E"),
                degrees(4, 170),
                {5, 1, 1, std::string(1, '\0')},
                fraction(6, static_cast<std::uint32_t>(noise_.between(0, 20'000)), 10),
                tiff_.text(0x1D, cameraTime(shot_, "%Y:%m:%d"))};
    }

    std::string previewDirectory(std::size_t offset) {
        const auto withThumbnailAt = [&](std::size_t position) {
            return tiff_.directory({tiff_.number16(0x0103, 6), fraction(0x011A, 72, 1),
                                    fraction(0x011B, 72, 1), tiff_.number16(0x0128, 2),
                                    tiff_.number32(0x0201, static_cast<std::uint32_t>(position)),
                                    tiff_.number32(0x0202, static_cast<std::uint32_t>(thumbnail_.size()))},
                                   offset);
        };
        return withThumbnailAt(offset + withThumbnailAt(0).size());
    }

    const Shot& shot_;
    Noise& noise_;
    CameraFacts facts_;
    TiffMaker tiff_;
    Noise noteNoise_;
    std::string thumbnail_;
    Entries mainEntries_;
};

} // namespace

std::string cameraTime(const Shot& shot, const char* format) {
    constexpr std::time_t year2001 = 978'307'200;
    const std::time_t time = year2001 + shot.second;
    std::tm fields{};
    gmtime_r(&time, &fields);
    std::ostringstream text;
    text << std::put_time(&fields, format);
    return text.str();
}

std::string makeOf(Camera camera) {
    return factsOf(camera).make;
}

std::string modelOf(Camera camera) {
    return factsOf(camera).model;
}

std::string cameraExif(const Shot& shot, Noise& noise, std::vector<TiffMaker::Entry> mainEntries) {
    return Layout(shot, noise, std::move(mainEntries)).bytes();
}

} // namespace lumeo::samples
