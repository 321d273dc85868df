#pragma once

#include <QImage>
#include <QSize>

struct AVFrame;
struct AVStream;

namespace lumeo {

/// A decoded frame of a movie's track as it is to be seen: its pixels made square, turned as the track
/// says, fitted into `pixels`. Null when it cannot be converted.
QImage frameImage(const AVFrame& frame, const AVStream& track, QSize pixels);

} // namespace lumeo
