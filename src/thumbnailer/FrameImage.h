#pragma once

#include <QImage>
#include <QSize>

struct AVFrame;
struct AVStream;

namespace lumeo {

/// A decoded frame of a movie's track as a viewer should see it: with square pixels, turned as the track
/// says, scaled to fit `pixels`. Null when it cannot be converted.
QImage frameImage(const AVFrame& frame, const AVStream& track, QSize pixels);

} // namespace lumeo
