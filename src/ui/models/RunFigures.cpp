#include "ui/models/RunFigures.h"

#include "ui/models/RunTexts.h"
#include "ui/models/ShownText.h"

#include <algorithm>

namespace lumeo {

RunFigures RunFigures::of(const OperationProgress& progress, std::int64_t total, double elapsedSeconds) {
    RunFigures shown;
    shown.isPaused = progress.isPaused;
    if (total > 0) {
        shown.fraction =
            std::clamp(static_cast<double>(progress.processedCount) / static_cast<double>(total), 0.0, 1.0);
    }
    shown.percentage = percentText(progress.processedCount, total);
    shown.processedOfTotal = QStringLiteral("%1 / %2").arg(progress.processedCount).arg(total);
    shown.currentName = shownText(progress.currentItemName);
    shown.verified = shownNumber(progress.verifiedCount);
    shown.skipped = shownNumber(progress.skippedCount);
    shown.errors = shownNumber(progress.errorsCount);
    shown.hasErrors = progress.errorsCount > 0;
    shown.transferred = shownByteCount(progress.transferredBytes);
    shown.speed = speedText(progress.averageThroughputBytesPerSec);
    shown.remaining = shownNumber(std::max<std::int64_t>(total - progress.processedCount, 0));
    shown.elapsed = spanText(elapsedSeconds);
    shown.timeLeft = spanText(progress.estimatedSecondsRemaining);
    return shown;
}

} // namespace lumeo
