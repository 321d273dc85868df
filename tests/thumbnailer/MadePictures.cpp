#include "thumbnailer/MadePictures.h"

#include "samples/TinyMovies.h"
#include "samples/TinyPhotos.h"

#include <QBuffer>
#include <QByteArray>
#include <QPainter>

namespace lumeo {
namespace {

using namespace std::string_literals;

constexpr int orientationTag = 0x0112;

std::string u32(std::uint64_t value) {
    return bigEndianBytes(value, 4);
}
std::string u16(std::uint64_t value) {
    return bigEndianBytes(value, 2);
}

/// A box that starts with a version and flags, both 0.
std::string fullBox(std::string_view type, const std::string& content) {
    return movieBox(type, u32(0) + content);
}

std::string sampleTable(const QList<std::string>& samples, QSize size, std::size_t offset,
                        int ticksPerFrame) {
    const std::string description =
        u32(0) + u16(0) + u16(1) + std::string(16, '\0') + u16(static_cast<std::uint64_t>(size.width())) +
        u16(static_cast<std::uint64_t>(size.height())) + u32(0x480000) + u32(0x480000) + u32(0) + u16(1) +
        std::string(32, '\0') + u16(24) + u16(0xFFFF);
    std::string sizes;
    for (const std::string& sample : samples) {
        sizes += u32(sample.size());
    }
    const std::string count = u32(static_cast<std::uint64_t>(samples.size()));
    return movieBox("stbl",
                    fullBox("stsd", u32(1) + movieBox("jpeg", description)) +
                        fullBox("stts", u32(1) + count + u32(static_cast<std::uint64_t>(ticksPerFrame))) +
                        fullBox("stsc", u32(1) + u32(1) + count + u32(1)) +
                        fullBox("stsz", u32(0) + count + sizes) + fullBox("stco", u32(1) + u32(offset)));
}

std::string displayMatrix(std::array<int, 4> turn) {
    std::string matrix;
    for (const int value : {turn[0], turn[1], 0, turn[2], turn[3], 0, 0, 0}) {
        matrix += u32(static_cast<std::uint32_t>(value * 0x10000));
    }
    return matrix + u32(0x40000000);
}

} // namespace

QImage redAndBlue(QSize size) {
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    QPainter(&picture).fillRect(0, 0, size.width() / 2, size.height(), Qt::red);
    return picture;
}

std::string encoded(const QImage& picture, const char* format) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, format, 95);
    return buffer.data().toStdString();
}

std::string withOrientation(const std::string& jpeg, int orientation) {
    const TiffMaker tiff;
    const std::string exif =
        "Exif\0\0"s + tiff.header() +
        tiff.directory({tiff.number16(orientationTag, static_cast<std::uint16_t>(orientation))}, 8);
    return jpeg.substr(0, 2) + "\xFF\xE1" + u16(exif.size() + 2) + exif + jpeg.substr(2);
}

std::string rawAround(const std::string& jpeg, int orientation) {
    constexpr std::size_t start = 8;
    const TiffMaker tiff;
    const auto directories = [&](std::size_t second, std::size_t picture) {
        const std::string first =
            tiff.directory({tiff.text(0x010F, "Maker"),
                            tiff.number16(orientationTag, static_cast<std::uint16_t>(orientation))},
                           start, static_cast<std::uint32_t>(second));
        return std::pair(first,
                         tiff.directory({tiff.number16(0x0103, 6),
                                         tiff.number32(0x0201, static_cast<std::uint32_t>(picture)),
                                         tiff.number32(0x0202, static_cast<std::uint32_t>(jpeg.size()))},
                                        second));
    };
    const std::size_t second = start + directories(0, 0).first.size();
    const std::size_t picture = second + directories(second, 0).second.size();
    const auto [first, next] = directories(second, picture);
    return tiff.header() + first + next + jpeg;
}

std::string movieOf(const QList<QColor>& frames, QSize size, std::array<int, 4> turn) {
    constexpr int ticksPerSecond = 600;
    constexpr int ticksPerFrame = 60;
    QList<std::string> samples;
    std::string media;
    for (const QColor& colour : frames) {
        QImage frame(size, QImage::Format_RGB32);
        frame.fill(colour);
        samples.append(encoded(frame, "jpeg"));
        media += samples.last();
    }
    const std::string type = movieBox("ftyp", "qt  " + u32(0) + "qt  ");
    const std::size_t offset = type.size() + 8;
    const std::string length = u32(static_cast<std::uint64_t>(frames.size() * ticksPerFrame));
    const std::string matrix = displayMatrix(turn);
    const std::string track =
        fullBox("tkhd", u32(0) + u32(0) + u32(1) + u32(0) + length + std::string(16, '\0') + matrix +
                            u32(static_cast<std::uint64_t>(size.width()) << 16) +
                            u32(static_cast<std::uint64_t>(size.height()) << 16));
    const std::string times = u32(0) + u32(0) + u32(ticksPerSecond) + length;
    const std::string mediaHeader =
        fullBox("mdhd", times + u32(0)) + fullBox("hdlr", "mhlrvide" + std::string(13, '\0'));
    const std::string information = movieBox("minf", fullBox("vmhd", std::string(8, '\0')) +
                                                         sampleTable(samples, size, offset, ticksPerFrame));
    return type + movieBox("mdat", media) +
           movieBox("moov", fullBox("mvhd", times + std::string(16, '\0') + displayMatrix({1, 0, 0, 1}) +
                                                std::string(28, '\0')) +
                                movieBox("trak", track + movieBox("mdia", mediaHeader + information)));
}

} // namespace lumeo
