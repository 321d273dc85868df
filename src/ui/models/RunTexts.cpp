#include "ui/models/RunTexts.h"

#include "ui/models/ShownText.h"

#include <algorithm>
#include <cmath>

namespace lumeo {
namespace {

/// Larger than any disk or run, and still within a 64-bit integer.
constexpr double greatest = 9e18;

std::int64_t whole(double value) {
    return static_cast<std::int64_t>(std::min(value, greatest));
}

bool isShown(double value) {
    return std::isfinite(value) && value > 0;
}

} // namespace

QString speedText(double bytesPerSecond) {
    return isShown(bytesPerSecond) ? shownByteCount(whole(bytesPerSecond)) + QStringLiteral("/s")
                                   : QStringLiteral("0 KB/s");
}

QString spanText(double seconds) {
    const std::int64_t count = isShown(seconds) ? whole(seconds) : 0;
    return count < 60 ? QStringLiteral("%1s").arg(count)
                      : QStringLiteral("%1m %2s").arg(count / 60).arg(count % 60);
}

QString percentText(std::int64_t part, std::int64_t whole) {
    const double percent = whole < 1 ? 0 : static_cast<double>(part) / static_cast<double>(whole) * 100;
    return QString::number(percent, 'f', 0) + QLatin1Char('%');
}

QString fileCountText(std::int64_t count) {
    return shownText(TextFormat::count(count, "file"));
}

QString forecastText(const std::optional<UndoForecast>& forecast) {
    if (!forecast || forecast->withoutOriginal == 0) {
        return {};
    }
    return forecast->withoutOriginal == 1
               ? QStringLiteral("1 file will be left in place: its original is no longer there.")
               : QStringLiteral("%1 files will be left in place: their originals are no longer there.")
                     .arg(shownNumber(forecast->withoutOriginal));
}

QString asSentence(std::string_view text) {
    QString sentence = shownText(text);
    if (sentence.isEmpty()) {
        return sentence;
    }
    sentence[0] = sentence[0].toUpper();
    return sentence.endsWith(QLatin1Char('.')) ? sentence : sentence + QLatin1Char('.');
}

} // namespace lumeo
