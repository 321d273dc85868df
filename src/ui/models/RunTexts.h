#pragma once

#include "transfer/UndoEngine.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <string_view>

namespace lumeo {

/// How the figures of a run are written, for people.

/// "12.5 MB/s"; "0 KB/s" for a rate that is not above 0 or not finite.
QString speedText(double bytesPerSecond);

/// "59s", "2m 5s", in whole seconds, the rest dropped; "0s" for a span that is not above 0 or not finite.
QString spanText(double seconds);

/// The share of `part` in `whole` in whole percent: "40%"; "0%" of nothing.
QString percentText(std::int64_t part, std::int64_t whole);

/// "1 file", "2 files".
QString fileCountText(std::int64_t count);

/// What an undo that is being considered will leave in place; empty when that is nothing, or not known yet.
QString forecastText(const std::optional<UndoForecast>& forecast);

/// A sentence of the core, which begins small and has no full stop, as a screen shows it.
QString asSentence(std::string_view text);

} // namespace lumeo
