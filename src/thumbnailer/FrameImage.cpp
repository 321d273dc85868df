#include "thumbnailer/FrameImage.h"

#include "thumbnailer/PictureShape.h"
#include "thumbnailer/TrackSideData.h"

#include <QTransform>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <span>

extern "C" {
#include <libavformat/avformat.h>
#include <libswscale/swscale.h>
}

namespace lumeo {
namespace {

struct FreeScaler {
    void operator()(SwsContext* scaler) const { sws_freeContext(scaler); }
};

/// The quarter turn or mirroring that is nearest to the track's matrix. Its scale is ignored.
QTransform turnOf(const AVStream& track) {
    const std::span<const std::uint8_t> data = sideData(track, AV_PKT_DATA_DISPLAYMATRIX);
    std::array<std::int32_t, 9> matrix{};
    if (data.size() < sizeof matrix) {
        return {};
    }
    std::copy_n(data.data(), sizeof matrix, reinterpret_cast<std::uint8_t*>(matrix.data()));
    const auto sign = [&](std::size_t index) { return matrix.at(index) < 0 ? -1 : 1; };
    const auto weight = [&](std::size_t index) { return std::abs(static_cast<double>(matrix.at(index))); };
    return weight(0) + weight(4) >= weight(1) + weight(3) ? QTransform(sign(0), 0, 0, sign(4), 0, 0)
                                                          : QTransform(0, sign(1), sign(3), 0, 0, 0);
}

/// The frame's size with square pixels.
QSize shownSize(const AVFrame& frame, const AVStream& track) {
    constexpr double mostStretched = 8; // more means damage
    AVRational aspect = frame.sample_aspect_ratio;
    if (aspect.num <= 0) {
        aspect = track.sample_aspect_ratio;
    }
    const double stretch = aspect.num > 0 && aspect.den > 0 ? av_q2d(aspect) : 1;
    if (stretch > mostStretched || stretch < 1 / mostStretched) {
        return {frame.width, frame.height};
    }
    return {static_cast<int>(std::lround(frame.width * stretch)), frame.height};
}

/// With the wrong matrix, greens and reds would look different in small and large movies.
void setColours(SwsContext& scaler, const AVFrame& frame) {
    constexpr int highDefinition = 720;
    constexpr int neutral = 1 << 16;
    const bool isUntold = frame.colorspace == AVCOL_SPC_UNSPECIFIED;
    const int guess = frame.height >= highDefinition ? SWS_CS_ITU709 : SWS_CS_ITU601;
    const int* const coefficients =
        sws_getCoefficients(isUntold ? guess : static_cast<int>(frame.colorspace));
    const int isFullRange = frame.color_range == AVCOL_RANGE_JPEG ? 1 : 0;
    sws_setColorspaceDetails(&scaler, coefficients, isFullRange, sws_getCoefficients(SWS_CS_DEFAULT), 1, 0,
                             neutral, neutral);
}

} // namespace

QImage frameImage(const AVFrame& frame, const AVStream& track, QSize pixels) {
    const QTransform turn = turnOf(track);
    const bool liesOnItsSide = turn.m11() == 0;
    const QSize target = fitted(shownSize(frame, track), liesOnItsSide ? pixels.transposed() : pixels);
    const std::unique_ptr<SwsContext, FreeScaler> scaler(
        sws_getContext(frame.width, frame.height, static_cast<AVPixelFormat>(frame.format), target.width(),
                       target.height(), AV_PIX_FMT_RGB32, SWS_AREA, nullptr, nullptr, nullptr));
    // The scaler writes in steps of many pixels, beyond the end of each line and of the last line.
    constexpr int step = 64;
    QImage image((target.width() / step + 2) * step, target.height() + 1, QImage::Format_ARGB32);
    if (!scaler || image.isNull()) {
        return {};
    }
    setColours(*scaler, frame);
    const std::array<std::uint8_t*, 4> planes{image.bits()};
    const std::array<int, 4> strides{static_cast<int>(image.bytesPerLine())};
    if (sws_scale(scaler.get(), frame.data, frame.linesize, 0, frame.height, planes.data(), strides.data()) <=
        0) {
        return {};
    }
    return image.copy(QRect({0, 0}, target)).transformed(turn);
}

} // namespace lumeo
