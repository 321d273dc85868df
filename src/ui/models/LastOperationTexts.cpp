#include "ui/models/LastOperationTexts.h"

#include "l10n/AppLanguage.h"
#include "l10n/LocalizationManager.h"
#include "platform/AsciiCase.h"
#include "ui/models/ShownText.h"

#include <QStringList>

namespace lumeo {
namespace {

QString labelled(const QString& label, const QString& value) {
    return label + QStringLiteral(": ") + value;
}

QString lineOf(const LastOperationSummary& summary, const LocalizationManager& localization) {
    const bool isMove = equalIgnoringAsciiCase(summary.operationType, "move");
    const auto completedAt =
        TextFormat::date(summary.completedAt, DateStyle::shortStyle, DateStyle::shortStyle,
                         languageCode(localization.currentLanguage()).toStdString());
    const QStringList parts{
        labelled(localization.localized(QStringLiteral("last.operationType")),
                 localization.localized(isMove ? QStringLiteral("operation.move")
                                               : QStringLiteral("operation.copy"))),
        labelled(localization.localized(QStringLiteral("last.destination")),
                 shownText(summary.destinationDisplayName)),
        labelled(localization.localized(QStringLiteral("last.completedAt")), shownText(completedAt)),
    };
    return parts.join(QStringLiteral(u"  \u2022  "));
}

} // namespace

LastOperationTexts LastOperationTexts::of(const std::optional<LastOperationSummary>& summary,
                                          const LocalizationManager& localization) {
    LastOperationTexts texts;
    if (!summary) {
        return texts;
    }
    texts.isPresent = true;
    texts.line = lineOf(*summary, localization);
    texts.files = shownNumber(summary->processedCount);
    texts.transferred = shownByteCount(summary->bytesTransferred);
    texts.verified = shownNumber(summary->verifiedCount);
    texts.skipped = shownNumber(summary->skippedCount);
    texts.errors = shownNumber(summary->errorCount);
    texts.hasErrors = summary->errorCount > 0;
    texts.duration = shownText(TextFormat::duration(summary->duration));
    return texts;
}

} // namespace lumeo
