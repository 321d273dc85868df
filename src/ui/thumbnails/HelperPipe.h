#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>

#include <cstdint>
#include <optional>
#include <string>

namespace lumeo {

// What the program and its helper say to each other, one question and one answer at a time. Both are of
// one build and one machine, so numbers stand as the processor has them.

/// The head of a question; the bytes of the path follow.
struct ThumbnailQuestion {
    std::int32_t width = 0; ///< of the space, in pixels
    std::int32_t height = 0;
    std::uint32_t pathLength = 0;
};

/// The head of an answer; the lines of the picture follow, four bytes a pixel. No picture is 0 by 0.
struct ThumbnailAnswer {
    std::int32_t width = 0;
    std::int32_t height = 0;
};

QByteArray encodedQuestion(const std::string& path, QSize pixels);
QByteArray encodedAnswer(const QImage& picture);

/// How far an answer has come.
struct ReceivedAnswer {
    bool isComplete = false;
    bool isDamaged = false; ///< not what the helper writes, or larger than was asked for
    QImage picture{};
};
ReceivedAnswer decodedAnswer(const QByteArray& received, QSize pixels);

} // namespace lumeo
