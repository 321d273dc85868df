#pragma once

#include "transfer/UndoEngine.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <string_view>

namespace lumeo {

/// The texts for the figures of a run.

/// "12.5 MB/s". "0 KB/s" for a rate that is not above 0 or not finite.
QString speedText(double bytesPerSecond);

/// "59s", "2m 5s", in whole seconds, rounded down. "0s" for a span that is not above 0 or not finite.
QString spanText(double seconds);

/// The share of `part` in `whole` in whole percent: "40%". "0%" when `whole` is 0.
QString percentText(std::int64_t part, std::int64_t whole);

/// "1 file", "2 files".
QString fileCountText(std::int64_t count);

/// What the undo in question would leave in place. Empty when that is nothing or not known yet.
QString forecastText(const std::optional<UndoForecast>& forecast);

/// A sentence of the core in the form that a screen shows. The core starts it with a small letter and gives
/// it no full stop.
QString asSentence(std::string_view text);

} // namespace lumeo
