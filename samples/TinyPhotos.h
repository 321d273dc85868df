#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumeo {

/// The facts in a made photo. Absent facts are left out of the file.
struct TinyPhoto {
    int width = 16; ///< pixels
    int height = 8;
    std::optional<std::string> dateTimeOriginal; ///< "2021:03:14 15:30:45", or anything else to store there
    std::optional<std::string> dateTimeDigitized;
    std::optional<std::string> dateTime;
    std::optional<std::string> make;
    std::optional<std::string> model;
    std::optional<std::string> lensModel;
    std::optional<double> latitude; ///< signed degrees; written only when both are present
    std::optional<double> longitude;
    std::optional<std::uint32_t> pixelXDimension;
    std::optional<std::uint32_t> pixelYDimension;
    std::optional<std::string> makerNote; ///< bytes
    std::optional<std::string> xmpPacket; ///< see tinyXmp()
    std::optional<std::string> photoshop; ///< rows of photoshopResource()
};

/// The bytes of a complete gray JPEG that can be decoded. Without any fact it has no metadata segment.
std::string tinyJpeg(const TinyPhoto& photo = {});

/// The bytes of a complete gray TIFF with its Exif directories that can be decoded. Its metadata is also
/// valid as a ".dng".
std::string tinyTiff(const TinyPhoto& photo = {});

/// A segment of a JPEG: its marker, its length, its content.
std::string jpegSegment(unsigned char marker, const std::string& content);

/// An XMP packet with attributes such as R"(tiff:Make="Maker" exif:GPSLatitude="48,51.2N")".
std::string tinyXmp(std::string_view attributes);

/// One of Photoshop's image resources, of which some hold an Exif block, an XMP packet or press facts.
std::string photoshopResource(int number, const std::string& content);
/// The press facts that tell of the day, and perhaps the time, as "20210314" and "153045+0100".
std::string pressFacts(const std::string& day, const std::string& time = "");
std::string tinyPsd(const std::string& resources);

/// A GIF with a packet before or behind so many parts of pixels.
std::string tinyGif(const std::string& xmpPacket, int partsBefore = 0);

/// A PNG of chunks that pngChunk() made. It has no pixels.
std::string tinyPng(const std::string& chunks);
std::string pngChunk(const std::string& type, const std::string& content);

/// Bytes in the form of a PNG's text: hex digits in lines of 72.
std::string pngProfile(const std::string& bytes);

/// Compressed like a PNG's texts.
std::string deflated(const std::string& text);

/// Compressed like the metadata of a JPEG XL file, with its box around it.
std::string brotliBox(const std::string& type, const std::string& content);

/// The Exif block of a photo, alone.
std::string tinyExif(const TinyPhoto& photo);

/// Builds a TIFF structure by hand, for files that no camera would write.
class TiffMaker {
public:
    explicit TiffMaker(bool littleEndian = true) : littleEndian_(littleEndian) {}

    struct Entry {
        std::uint16_t tag = 0;
        std::uint16_t type = 0;
        std::uint32_t count = 0;
        std::string value; ///< already in the structure's byte order
    };

    [[nodiscard]] Entry text(std::uint16_t tag, const std::string& value) const;
    [[nodiscard]] Entry number16(std::uint16_t tag, std::uint16_t value) const;
    [[nodiscard]] Entry number32(std::uint16_t tag, std::uint32_t value) const;
    /// Degrees, minutes and seconds as three fractions.
    [[nodiscard]] Entry degrees(std::uint16_t tag, double unsignedDegrees) const;
    [[nodiscard]] std::string u16(std::uint16_t value) const;
    [[nodiscard]] std::string u32(std::uint32_t value) const;

    /// The bytes of a directory at `offset`: entries, the offset of the next directory, then the values that
    /// do not fit into an entry.
    [[nodiscard]] std::string directory(std::vector<Entry> entries, std::size_t offset,
                                        std::uint32_t next = 0) const;

    /// The eight bytes before the first directory, which follows directly.
    [[nodiscard]] std::string header() const;

private:
    bool littleEndian_;
};

} // namespace lumeo
