#include "ui/models/ScanFigures.h"

#include "app/AppState.h"
#include "l10n/LocalizationManager.h"
#include "ui/models/ShownText.h"

#include <algorithm>
#include <system_error>

namespace lumeo {

ScanCounters ScanCounters::of(const ScanProgress& progress) {
    ScanCounters shown;
    shown.isPaused = progress.isPaused;
    shown.photos = shownNumber(progress.photosCount);
    shown.videos = shownNumber(progress.videosCount);
    shown.raw = shownNumber(progress.rawCount);
    shown.supported = shownNumber(progress.supportedMediaCount());
    shown.inspected = shownNumber(progress.totalScannedCount);
    shown.unsupported = shownNumber(progress.unsupportedCount);
    shown.errors = shownNumber(progress.errorsCount);
    shown.hasErrors = progress.errorsCount > 0;
    shown.duration = shownSeconds(progress.scanDurationSeconds);
    shown.currentName = shownText(progress.currentItemName);
    return shown;
}

ScanFindings ScanFindings::of(const CatalogueCounts& counts, std::size_t sources, const AppState& state,
                              const LocalizationManager& texts) {
    const auto share = [&counts](std::int64_t part) {
        return counts.items > 0 ? static_cast<double>(part) / static_cast<double>(counts.items) : 0;
    };
    ScanFindings shown;
    shown.hasItems = counts.items > 0;
    shown.foundLine = QStringLiteral("%1 %2 %3")
                          .arg(shownNumber(counts.items), texts.localized(QStringLiteral("results.subtitle")),
                               shownNumber(static_cast<std::int64_t>(sources)));
    shown.scannedInLine = texts.localized(QStringLiteral("results.scannedIn")) + QLatin1Char(' ') +
                          shownSeconds(state.scanProgress().scanDurationSeconds);
    shown.photos = shownNumber(counts.photos);
    shown.videos = shownNumber(counts.videos);
    shown.raw = shownNumber(counts.raw);
    shown.photosShare = share(counts.photos);
    shown.videosShare = share(counts.videos);
    shown.rawShare = share(counts.raw);
    shown.isAnalyzed = state.isAnalyzed();
    shown.duplicates = shown.isAnalyzed ? shownNumber(counts.duplicates) : QString(notKnown);
    const auto places = std::max<std::int64_t>(state.scanProgress().errorsCount,
                                               static_cast<std::int64_t>(state.unreadable().size()));
    if (places > 0) {
        shown.unreadableTitle =
            shownText(TextFormat::count(places, "place")) + QStringLiteral(" could not be read");
    }
    for (const FileError& error : state.unreadable()) {
        shown.unreadable.append(shownPath(error.path) + QStringLiteral(": ") +
                                shownText(std::generic_category().message(error.errnoValue)));
    }
    shown.missingDates = shownNumber(counts.missingDates);
    shown.warnings = shownNumber(counts.warnings);
    shown.totalSize = shownByteCount(counts.bytes);
    return shown;
}

} // namespace lumeo
