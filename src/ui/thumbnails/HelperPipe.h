#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>

#include <cstdint>

namespace lumeo {

// The messages between the program and its helper, one question and one answer at a time; see HelperSocket.

/// Sent together with the open file.
struct ThumbnailQuestion {
    std::int64_t fileSize = 0; ///< bytes
    std::int32_t width = 0;    ///< of the space, in pixels
    std::int32_t height = 0;
    std::uint64_t isRaw = 0; ///< 1 when the file's name says that it is a camera's raw file
};

/// The head of an answer. The lines of the picture follow, with four bytes for each pixel. Without a picture
/// the size is 0 by 0.
struct ThumbnailAnswer {
    std::int32_t width = 0;
    std::int32_t height = 0;
};

QByteArray encodedAnswer(const QImage& picture);

/// How much of an answer has arrived.
struct ReceivedAnswer {
    bool isComplete = false;
    bool isDamaged = false; ///< not what the helper writes, or larger than requested
    QImage picture{};
};
ReceivedAnswer decodedAnswer(const QByteArray& received, QSize pixels);

} // namespace lumeo
