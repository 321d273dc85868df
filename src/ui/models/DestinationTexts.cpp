#include "ui/models/DestinationTexts.h"

#include "l10n/LocalizationManager.h"
#include "ui/models/ShownText.h"

namespace lumeo {

DestinationTexts DestinationTexts::of(const std::optional<SourceVolume>& volume, std::int64_t estimatedBytes,
                                      const LocalizationManager& texts) {
    DestinationTexts shown;
    if (!volume) {
        return shown;
    }
    shown.isChosen = true;
    shown.name = shownText(volume->name);
    shown.path = shownPath(volume->url);
    shown.symbol = volume->isRemovable ? QStringLiteral("externaldrive.fill") : QStringLiteral("folder.fill");
    const std::optional<std::int64_t> free = volume->freeSpaceBytes;
    shown.lacksRoom = free && estimatedBytes >= *free;
    shown.capacityLine =
        QStringLiteral("%1 (%2: %3)")
            .arg(free ? shownByteCount(*free) + QLatin1Char(' ') +
                            texts.localized(QStringLiteral("org.freeSpace"))
                      : texts.localized(QStringLiteral("org.unknownCapacity")),
                 texts.localized(QStringLiteral("org.estimatedSize")), shownByteCount(estimatedBytes));
    if (const std::optional<double> used = volume->usagePercentage()) {
        shown.hasCapacity = true;
        shown.usedShare = *used;
        shown.addedShare =
            static_cast<double>(estimatedBytes) / static_cast<double>(*volume->totalCapacityBytes);
    }
    return shown;
}

} // namespace lumeo
