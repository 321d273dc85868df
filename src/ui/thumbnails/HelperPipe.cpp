#include "ui/thumbnails/HelperPipe.h"

#include <cstring>

namespace lumeo {
namespace {

constexpr QImage::Format pixelFormat = QImage::Format_ARGB32;
constexpr qsizetype bytesPerPixel = 4;

template<class Head>
QByteArray headBytes(const Head& head) {
    return {reinterpret_cast<const char*>(&head), sizeof head};
}

} // namespace

QByteArray encodedAnswer(const QImage& picture) {
    const QImage plain = picture.convertToFormat(pixelFormat);
    QByteArray bytes = headBytes(ThumbnailAnswer{plain.width(), plain.height()});
    for (int line = 0; line < plain.height(); ++line) {
        bytes.append(reinterpret_cast<const char*>(plain.constScanLine(line)), plain.width() * bytesPerPixel);
    }
    return bytes;
}

ReceivedAnswer decodedAnswer(const QByteArray& received, QSize pixels) {
    ThumbnailAnswer head;
    constexpr qsizetype headSize = sizeof head;
    if (received.size() < headSize) {
        return {};
    }
    std::memcpy(&head, received.constData(), sizeof head);
    if (head.width < 0 || head.height < 0 || head.width > pixels.width() || head.height > pixels.height()) {
        return {.isComplete = true, .isDamaged = true};
    }
    const qsizetype size = headSize + bytesPerPixel * head.width * head.height;
    if (received.size() < size) {
        return {};
    }
    ReceivedAnswer answer{.isComplete = true, .isDamaged = received.size() > size};
    if (size > headSize) {
        const auto* const lines = reinterpret_cast<const uchar*>(received.constData() + headSize);
        answer.picture =
            QImage(lines, head.width, head.height, head.width * bytesPerPixel, pixelFormat).copy();
    }
    return answer;
}

} // namespace lumeo
