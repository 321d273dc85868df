#include "ui/models/KeyTranslator.h"

#include "l10n/LocalizationManager.h"

namespace lumeo {

QString KeyTranslator::translate(const char* context, const char* sourceText, const char* /*disambiguation*/,
                                 int /*n*/) const {
    if (context != nullptr && *context != '\0') {
        return {};
    }
    return localization_.localized(QString::fromUtf8(sourceText));
}

} // namespace lumeo
