#include "thumbnailer/CommonImage.h"

#include "thumbnailer/PictureShape.h"

#include <QBuffer>
#include <QColorSpace>
#include <QIODevice>
#include <QImageReader>

#include <algorithm>
#include <array>
#include <string_view>

namespace lumeo {
namespace {

using namespace std::string_view_literals;

/// Decoding a JPEG of several passes holds all of its coefficients in memory, six bytes for each pixel.
constexpr std::int64_t mostProgressivePixels = 60'000'000;

/// For formats that can only be decoded at full size.
constexpr int mostMegabytes = 512;

struct Signature {
    std::string_view bytes;
    std::size_t offset;
    const char* format; ///< Qt's name
};

constexpr std::array signatures{
    Signature{"\xFF\xD8\xFF"sv, 0, "jpeg"},
    Signature{"\x89PNG\r\n\x1A\n"sv, 0, "png"},
    Signature{"GIF8"sv, 0, "gif"},
    Signature{"WEBP"sv, 8, "webp"},
    Signature{"II*\0"sv, 0, "tiff"},
    Signature{"MM\0*"sv, 0, "tiff"},
    Signature{"II+\0"sv, 0, "tiff"},
    Signature{"MM\0+"sv, 0, "tiff"},
    Signature{"BM"sv, 0, "bmp"},
    Signature{"\0\0\1\0"sv, 0, "ico"},
    Signature{"icns"sv, 0, "icns"},
};

/// Only the content tells the format. Names can be wrong, and some of Qt's readers accept any content.
QByteArray formatOf(std::string_view head) {
    const auto* const found = std::ranges::find_if(signatures, [head](const Signature& signature) {
        return head.size() > signature.offset && head.substr(signature.offset).starts_with(signature.bytes);
    });
    return found != signatures.end() ? QByteArray(found->format) : QByteArray();
}

/// The file in the form that Qt's readers need.
class FileDevice final : public QIODevice {
public:
    explicit FileDevice(BoundedFile& file) : file_(file) { open(ReadOnly); }

    [[nodiscard]] qint64 size() const override { return file_.size(); }

protected:
    qint64 readData(char* data, qint64 count) override {
        const std::span<char> space(data, static_cast<std::size_t>(std::max<qint64>(count, 0)));
        const FileResult<std::size_t> read = file_.readAt(pos(), std::as_writable_bytes(space));
        return read ? static_cast<qint64>(*read) : -1;
    }
    qint64 writeData(const char* /*data*/, qint64 /*count*/) override { return -1; }

private:
    BoundedFile& file_;
};

/// Looks for the frame header that announces several passes.
bool isProgressiveJpeg(QIODevice& device) {
    constexpr int mostSegments = 1'000;
    constexpr qint64 headerSize = 4;
    bool isProgressive = false;
    qint64 offset = 2;
    for (int segment = 0; segment < mostSegments && !isProgressive && device.seek(offset); ++segment) {
        const QByteArray header = device.read(headerSize);
        if (header.size() < headerSize || header[0] != '\xFF' || header[1] == '\xDA') {
            break;
        }
        isProgressive = header[1] == '\xC2';
        const int length =
            static_cast<unsigned char>(header[2]) * 256 + static_cast<unsigned char>(header[3]);
        offset += 2 + length;
    }
    device.seek(0);
    return isProgressive;
}

QImage decode(QIODevice& device, const QByteArray& format, QSize pixels, int orientation) {
    QImageReader::setAllocationLimit(mostMegabytes);
    const bool isProgressive = format == "jpeg" && isProgressiveJpeg(device);
    QImageReader reader(&device, format);
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (qint64{size.width()} * size.height() > (isProgressive ? mostProgressivePixels : mostPixels)) {
        return {};
    }
    const bool isOriented = reader.transformation() != QImageIOHandler::TransformationNone;
    const bool liesOnItsSide = isOriented
                                   ? reader.transformation().testFlag(QImageIOHandler::TransformationRotate90)
                                   : orientation >= 5;
    if (size.isValid()) {
        reader.setScaledSize(fitted(size, liesOnItsSide ? pixels.transposed() : pixels));
    }
    QImage image = reader.read();
    if (!image.isNull() && !size.isValid()) {
        image = image.scaled(fitted(image.size(), pixels), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    if (image.colorSpace().isValid()) {
        image.convertToColorSpace(QColorSpace::SRgb);
    }
    return isOriented ? image : upright(image, orientation);
}

} // namespace

void prepareCommonImages() {
    for (const Signature& signature : signatures) {
        QBuffer nothing;
        nothing.open(QIODevice::ReadOnly);
        QImageReader(&nothing, signature.format).canRead();
    }
}

QImage commonImage(BoundedFile& file, QSize pixels) {
    FileDevice device(file);
    const QByteArray head = device.peek(16);
    const QByteArray format = formatOf({head.constData(), static_cast<std::size_t>(head.size())});
    return format.isEmpty() ? QImage() : decode(device, format, pixels, 1);
}

QImage embeddedJpeg(const QByteArray& bytes, QSize pixels, int orientation) {
    QBuffer device;
    device.setData(bytes);
    device.open(QIODevice::ReadOnly);
    return decode(device, "jpeg", pixels, orientation);
}

} // namespace lumeo
